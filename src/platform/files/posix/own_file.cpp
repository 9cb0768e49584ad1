// The file that the component runs from, as Linux lists it.
#include "platform/files/own_file.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

namespace wynconfig {

/// The system knows it wherever it was looked for.
std::filesystem::path ownFile() {
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
        return path == std::string::npos ? std::filesystem::path()
                                         : std::filesystem::path(line.substr(path));
    }
    return {};
}

bool mayHaveTextsBeside() {
    return false;
}

}  // namespace wynconfig
