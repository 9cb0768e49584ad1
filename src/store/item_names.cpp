// Listing a store folder.
#include "store/item_names.h"

#include "platform/files/file_system.h"

namespace wynconfig {

std::vector<std::string> listItemNames(const std::string& folder) {
    constexpr std::size_t kExtension = 4;
    std::vector<std::string> names = fileSystem().listItems(folder);
    for (std::string& name : names) name.resize(name.size() - kExtension);
    return names;
}

}  // namespace wynconfig
