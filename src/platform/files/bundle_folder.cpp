// Where the texts lie, told by where the component runs.
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

/// The file that this code was loaded from: the shared library, or the program. The system knows it
/// wherever it was looked for.
fs::path ownFile() {
    const auto own = reinterpret_cast<std::uintptr_t>(&ownFile);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        // 7f1c2a000000-7f1c2a100000 r-xp 00000000 08:01 1234   /usr/lib/libwynconfig.so.0
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        const char* const last = line.data() + line.size();
        const char* at = std::from_chars(line.data(), last, begin, 16).ptr;
        if (at != last) std::from_chars(at + 1, last, end, 16);
        if (own < begin || own >= end) continue;
        const std::size_t path = line.find('/');
        return path == std::string::npos ? fs::path() : fs::path(line.substr(path));
    }
    return {};
}

}  // namespace

std::string bundleFolder() {
    const fs::path own = ownFile();
    for (fs::path above = own.parent_path(); above.has_relative_path();
         above = above.parent_path()) {
        const fs::path folder = above / WYNCONFIG_DATA / "wynconfig";
        std::error_code ignored;
        // English has every text.
        if (fs::exists(folder / "en.xlf", ignored)) return folder.string();
    }
    return (fs::path(WYNCONFIG_INSTALLED_DATA) / "wynconfig").string();
}

}  // namespace wynconfig
