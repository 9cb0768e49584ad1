// Paths of Windows: drives and network folders, `/` and `\` alike, and the names that stand for
// something else than a file of their folder.
#include "platform/files/paths.h"

#include <algorithm>
#include <array>

#include "platform/text/text.h"

namespace wynconfig {

namespace {

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool beginsWithDrive(std::string_view path) {
    return path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && path[2] == '/';
}

/// `/` in the place of every run of separators.
std::string withSingleSeparators(std::string_view path) {
    std::string single;
    for (const char c : path) {
        if (!isSystemSeparator(c)) {
            single += c;
        } else if (single.empty() || single.back() != '/') {
            single += '/';
        }
    }
    return single;
}

/// Whether a name stands for a device in whatever folder: a serial port, the console, and others,
/// also with an extension behind it.
bool isDevice(std::string_view name) {
    std::string_view stem = name.substr(0, name.find('.'));
    while (stem.ends_with(' ')) stem.remove_suffix(1);
    const std::string upper = UCase(stem);
    constexpr std::array<std::string_view, 7> kDevices{"CON",    "PRN",     "AUX",   "NUL",
                                                       "CONIN$", "CONOUT$", "CLOCK$"};
    if (std::find(kDevices.begin(), kDevices.end(), upper) != kDevices.end()) return true;
    if (!upper.starts_with("COM") && !upper.starts_with("LPT")) return false;
    // The raised digits of Latin 1 count as well.
    constexpr std::array<std::string_view, 13> kPorts{
        "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"};
    return std::find(kPorts.begin(), kPorts.end(), upper.substr(3)) != kPorts.end();
}

}  // namespace

bool isSystemSeparator(char c) {
    return c == '/' || c == '\\';
}

std::string systemPath(std::string_view path) {
    const bool onNetwork =
        path.size() > 1 && isSystemSeparator(path[0]) && isSystemSeparator(path[1]);
    std::string system = withSingleSeparators(path);
    if (onNetwork) {
        // The system's own way to name long paths.
        if (system.starts_with("/?/") && beginsWithDrive(std::string_view{system}.substr(3)))
            return systemPath(system.substr(3));
        if (UCase(system).starts_with("/?/UNC/")) system.erase(1, 6);
        system.insert(0, 1, '/');
    }
    const std::size_t least = onNetwork ? 2 : std::max<std::size_t>(rootLength(system), 1);
    if (system.size() > least && system.back() == '/') system.pop_back();
    return system;
}

std::size_t rootLength(std::string_view path) {
    if (beginsWithDrive(path)) return 3;
    if (!path.starts_with("//")) return path.starts_with('/') ? 1 : 0;
    const std::size_t share = path.find('/', 2);
    if (share == std::string_view::npos) return path.size();
    return std::min(path.find('/', share + 1), path.size() - 1) + 1;
}

std::string exactPath(std::string_view path) {
    return systemPath(path);
}

bool isNameOfSystem(std::string_view name) {
    const auto isLetterOfNames = [](char c) {
        constexpr std::string_view kOthers = "<>:\"|?*/\\";
        return static_cast<unsigned char>(c) >= 0x20 && kOthers.find(c) == std::string_view::npos;
    };
    // The system takes a dot or blank away from the end; behind a colon stands a stream of the
    // file.
    return isUtf8(name) && !name.empty() && name.back() != '.' && name.back() != ' ' &&
           std::all_of(name.begin(), name.end(), isLetterOfNames) && !isDevice(name);
}

}  // namespace wynconfig
