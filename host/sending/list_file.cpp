// Appending to a file and replacing it, both by a whole new one.
#include "sending/list_file.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "texts/phrase.h"
#include "texts/system_words.h"
#include "wynconfig/error.h"
#include "wynconfig/save_file.h"

namespace host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
    throw std::runtime_error(phrase("FILE_CANT_WRITE", {path.string(), why}));
}

/// Where the list goes. Whoever puts a link there means the file behind it, be it yet to be made.
fs::path behindLinks(const fs::path& path) {
    constexpr int kMostLinks = 40;
    fs::path place = path;
    std::error_code failure;
    for (int links = 0; fs::is_symlink(fs::symlink_status(place, failure)); ++links) {
        if (links == kMostLinks) fail(path, phrase("REASON_LINK_CIRCLE"));
        const fs::path next = fs::read_symlink(place, failure);
        if (failure) fail(path, systemWords(failure));
        place = place.parent_path() / next;
    }
    return place;
}

/// The content of a plain file.
/// @param shown  the name under which a failure is told
std::string contentOf(const fs::path& place, const fs::path& shown) {
    errno = 0;
    std::ifstream file(place, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(file), {}};
    if (file.bad() || !file.is_open())
        fail(shown, errno ? systemWords(std::error_code(errno, std::generic_category()))
                          : phrase("REASON_UNREADABLE"));
    return content;
}

}  // namespace

fs::path listFilePath(const std::string& folder, const std::string& name) {
    if (name.empty() || name == "." || name == ".." || name.find_first_of("/\\") != name.npos)
        throw std::runtime_error(phrase("FILE_NO_NAME", {name}));
    return fs::path(folder) / name;
}

ListPlace placeOf(const ListFile& file) {
    ListPlace place{behindLinks(file.path)};
    std::error_code failure;
    if (!fs::is_directory(place.file.parent_path(), failure))
        fail(file.path, phrase("REASON_NO_FOLDER"));
    const fs::file_type kind = fs::status(place.file, failure).type();
    if (kind == fs::file_type::none) fail(file.path, systemWords(failure));
    if (kind == fs::file_type::directory) fail(file.path, phrase("REASON_IS_FOLDER"));
    place.isThere = kind != fs::file_type::not_found;
    if (!place.isThere) return place;
    // Opening a pipe, a device or a socket would wait for another program, or do who knows what.
    if (kind != fs::file_type::regular) fail(file.path, phrase("REASON_PIPE"));
    const std::uintmax_t size = fs::file_size(place.file, failure);
    if (!failure) place.size = size;
    return place;
}

void writeListFile(const ListFile& file, std::string_view bytes) {
    const ListPlace place = placeOf(file);
    std::string content;
    if (file.append && place.isThere) content = contentOf(place.file, file.path);
    content += bytes;
    try {
        wynconfig::saveFile(place.file.string(), content);
    } catch (const wynconfig::Error& error) {
        const std::string why = reasonTold(error.description());
        if (why.empty()) throw;
        fail(file.path, why);
    }
}

}  // namespace host
