// Listing a store folder, and readying a list for what it holds.
#include "services/item_lists.h"

#include "platform/files/file_system.h"

namespace wynconfig {

std::vector<std::string> listItemNames(const std::string& folder) {
    constexpr std::size_t kExtension = 4;
    std::vector<std::string> names = fileSystem().listItems(folder);
    for (std::string& name : names) name.resize(name.size() - kExtension);
    return names;
}

void prepareItemList(ListView& list, const Label& label, int width) {
    list.setVisible(false);
    list.addColumn({"NAME", label.caption(), width, "Stores the name of the item"});
    list.setBackground(Background::Window);
}

void selectAtLoad(OnError& on, ListView& list, const std::string& name) {
    if (on.test([&] { return list.count() > 0; })) on([&] { list.select(1); });
    if (name.empty()) return;
    for (std::size_t i = 1; i <= list.count(); ++i) {
        if (list.row(i).text == name) on([&] { list.select(i); });
    }
}

}  // namespace wynconfig
