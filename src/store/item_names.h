// The names of what lies in a store folder, and the names that it may get.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wynconfig {

/// The names of the items in a store folder, without ".vla", in the order of the folder's listing.
std::vector<std::string> listItemNames(const std::string& folder);

/// The folder of a store folder's deleted items, with its trailing separator. Raises
/// errc::FileAccess when it is a symbolic link: what is deleted would leave the store. The store
/// folders themselves may be links.
/// @param folder  the store folder, with its trailing separator
std::string deletedFolder(const std::string& folder);

/// What the name of a session or part format must not hold.
inline constexpr std::string_view kNotInNames = "\\/:*?\"<>|.";

/// True when a name must be refused: its trimmed form holds one of some characters, or reads as a
/// number. An empty name is not refused here. Raises errc::Overflow for a trimmed name of more than
/// 32,767 characters.
bool isRefusedName(const std::string& name, std::string_view forbidden);

}  // namespace wynconfig
