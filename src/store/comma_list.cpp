// Taking lists of names apart and putting them together.
#include "store/comma_list.h"

#include <algorithm>

namespace wynconfig {

std::vector<std::string_view> splitAtCommas(std::string_view list) {
    std::vector<std::string_view> parts;
    if (list.empty()) return parts;
    parts.reserve(static_cast<std::size_t>(std::count(list.begin(), list.end(), ',')) + 1);
    std::size_t start = 0;
    for (std::size_t comma = list.find(','); comma != std::string_view::npos;
         comma = list.find(',', start)) {
        parts.push_back(list.substr(start, comma - start));
        start = comma + 1;
    }
    parts.push_back(list.substr(start));
    return parts;
}

std::string withName(const std::string& list, const std::string& name) {
    if (list.empty()) return name;
    const std::vector<std::string_view> parts = splitAtCommas(list);
    if (std::find(parts.begin(), parts.end(), name) != parts.end()) return list;
    return list + "," + name;
}

std::string withoutNames(std::string_view list, const std::unordered_set<std::string_view>& names) {
    std::string kept;
    for (const std::string_view part : splitAtCommas(list)) {
        if (names.contains(part)) continue;
        // An empty part at the start leaves the list empty, and so no comma behind it.
        if (!kept.empty()) kept += ',';
        kept += part;
    }
    return kept;
}

}  // namespace wynconfig
