// Names as the database holds them, and the names that a store has.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace host {

/// A name in upper case, by which names are compared. As in the component, a character goes over
/// into one other that leads back to it, or stays as it is.
std::string upperName(std::string_view name);

/// The upper-cased names of the item files in a folder of a store; none when there is no folder.
/// Raises `std::filesystem::filesystem_error` when the folder can't be read.
std::set<std::string> itemNames(const std::filesystem::path& folder);

}  // namespace host
