// The names of what lies in a store folder.
#pragma once

#include <string>
#include <vector>

namespace wynconfig {

/// The names of the items in a store folder, without ".vla", in the order of the folder's listing.
std::vector<std::string> listItemNames(const std::string& folder);

}  // namespace wynconfig
