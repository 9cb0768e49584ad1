// Names as the database holds them, and the names that a store has.
#pragma once

#include <filesystem>
#include <set>
#include <string>

#include "wynconfig/store.h"

namespace host {

using wynconfig::upperName;

/// The upper-cased names of the item files in a folder of a store; none when there is no folder.
/// Raises `std::filesystem::filesystem_error` when the folder can't be read.
std::set<std::string> itemNames(const std::filesystem::path& folder);

}  // namespace host
