// Appending to a file and replacing it.
#include "sending/list_file.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::string& why) {
    throw std::runtime_error("The file " + path.string() + " can't be written: " + why + ".");
}

/// Writes and closes a file. A failure leaves it unfinished.
/// @param shown  the name under which a failure is told
void writeBytes(const fs::path& path, std::ios::openmode mode, std::string_view bytes,
                const fs::path& shown) {
    errno = 0;
    std::ofstream stream(path, mode | std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (stream) return;
    fail(shown, errno ? std::generic_category().message(errno) : "an unknown failure");
}

void append(const fs::path& path, std::string_view bytes) {
    std::error_code ignored;
    const bool wasThere = fs::exists(path, ignored);
    const std::uintmax_t size = wasThere ? fs::file_size(path) : 0;
    try {
        writeBytes(path, std::ios::app, bytes, path);
    } catch (const std::runtime_error&) {
        // Half a list behind an older one would look like a list.
        if (wasThere) fs::resize_file(path, size, ignored);
        throw;
    }
}

void replace(const fs::path& path, std::string_view bytes) {
    std::error_code failure;
    // A link stays a link: what it leads to is replaced.
    const fs::path target = fs::exists(path) ? fs::canonical(path) : path;
    fs::path fresh = target;
    fresh += ".new";
    try {
        writeBytes(fresh, std::ios::trunc, bytes, path);
        if (fs::exists(target)) fs::permissions(fresh, fs::status(target).permissions());
        fs::rename(fresh, target);
    } catch (const fs::filesystem_error& error) {
        fs::remove(fresh, failure);
        fail(path, error.code().message());
    } catch (const std::runtime_error&) {
        if (fs::is_regular_file(fresh, failure)) fs::remove(fresh, failure);
        throw;
    }
}

}  // namespace

fs::path listFilePath(const std::string& folder, const std::string& name) {
    if (name.empty() || name == "." || name == ".." || name.find_first_of("/\\") != name.npos)
        throw std::runtime_error("\"" + name + "\" is no name of a file.");
    return fs::path(folder) / name;
}

void writeListFile(const ListFile& file, std::string_view bytes) {
    std::error_code failure;
    if (!fs::is_directory(file.path.parent_path(), failure))
        fail(file.path, "its folder is not there");
    if (fs::is_directory(file.path, failure)) fail(file.path, "it is a folder");
    if (file.append)
        append(file.path, bytes);
    else
        replace(file.path, bytes);
}

}  // namespace host
