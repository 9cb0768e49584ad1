// Paths of a POSIX system: one root, and any byte in a name.
#include "platform/files/paths.h"

namespace wynconfig {

std::string systemPath(std::string_view path) {
    std::string system;
    for (const char c : path) {
        if (c != '/' && c != '\\') {
            system += c;
        } else if (system.empty() || system.back() != '/') {
            system += '/';
        }
    }
    if (system.size() > 1 && system.back() == '/') system.pop_back();
    return system;
}

std::size_t rootLength(std::string_view path) {
    return path.starts_with('/') ? 1 : 0;
}

std::string exactPath(std::string_view path) {
    return std::string{path};
}

bool isSystemSeparator(char c) {
    return c == '/';
}

bool isNameOfSystem(std::string_view) {
    return true;
}

}  // namespace wynconfig
