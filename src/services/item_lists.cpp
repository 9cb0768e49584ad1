// Readying a list for what a store folder holds.
#include "services/item_lists.h"

namespace wynconfig {

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
