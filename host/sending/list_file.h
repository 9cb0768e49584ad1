// Writes a laid-out list to a file.
#pragma once

#include <cstdint>
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

/// What lies where a list is to go.
struct ListPlace {
    std::filesystem::path file;  ///< where its links lead
    bool isThere = false;
    std::uintmax_t size = 0;  ///< bytes of what is there
};

/// Looks at the place of a list without opening anything. Raises `std::runtime_error` with the
/// sentence by which `writeListFile` would refuse it. Rights are not looked at.
ListPlace placeOf(const ListFile& file);

/// Writes the bytes as they are. Whatever happens meanwhile, the file is wholly the old or wholly
/// the new one, also when the list is appended: the whole file is then written anew. A link is
/// followed, also one to a file that is yet to be made; what is no plain file is not opened. Of two
/// programs that append at the same moment, one may lose its list. Raises `std::runtime_error` with
/// a sentence for the user; what stood there stays then.
void writeListFile(const ListFile& file, std::string_view bytes);

}  // namespace host
