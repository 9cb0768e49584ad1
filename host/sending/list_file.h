// Writes a laid-out list to a file.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host {

/// The file that a session writes.
struct ListFile {
    std::filesystem::path path;
    bool append = false;  ///< keep what the file holds; else the list replaces it
};

/// The place of a file in its folder. Raises `std::runtime_error` for a name that is not a plain
/// file name, such as one with a separator.
std::filesystem::path listFilePath(const std::string& folder, const std::string& name);

/// Writes the bytes as they are. A file that is replaced is at all times wholly the old or wholly
/// the new one: the new one is written beside it, as `<name>.new`, and then takes its place.
/// Raises `std::runtime_error` with a sentence for the user; what stood there stays then.
void writeListFile(const ListFile& file, std::string_view bytes);

}  // namespace host
