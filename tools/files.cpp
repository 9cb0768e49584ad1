// Reads and writes files outside a store.
#include "files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "wynconfig/error.h"
#include "wynconfig/save_file.h"

namespace tool {

namespace {

namespace fs = std::filesystem;
using wynconfig::Error;

[[noreturn]] void refuse(const std::string& path, const char* verb, const std::string& cause) {
    throw Error(wynconfig::errc::FileAccess,
                "The file " + path + " can't be " + verb + ": " + cause + ".");
}

void writeInPlace(const std::string& path, const std::string& content) {
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) refuse(path, "written", std::strerror(errno));
}

}  // namespace

std::string readFile(const std::string& path) {
    if (fs::is_directory(path)) refuse(path, "read", "it is a folder");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) refuse(path, "read", std::strerror(errno));
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& content) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    // A pipe or a device takes what comes, and must not be replaced by a file.
    if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status))
        return writeInPlace(path, content);
    wynconfig::saveFile(path, content);
}

}  // namespace tool
