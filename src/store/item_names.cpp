// Listing a store folder, and judging names.
#include "store/item_names.h"

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "wynconfig/characters.h"

namespace wynconfig {

std::vector<std::string> listItemNames(const std::string& folder) {
    constexpr std::size_t kExtension = 4;
    std::vector<std::string> names = fileSystem().listItems(folder);
    for (std::string& name : names) name.resize(name.size() - kExtension);
    return names;
}

std::string deletedFolder(const std::string& folder) {
    fileSystem().refuseLink(folder + "deleted");
    return folder + "deleted\\";
}

bool isRefusedName(const std::string& name, std::string_view forbidden) {
    const std::string trimmed = Trim(name);
    toInt16(charCount(trimmed));
    return trimmed.find_first_of(forbidden) != std::string::npos || IsNumeric(trimmed);
}

}  // namespace wynconfig
