// Where the texts lie, told by where the component runs.
#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

/// The file that this code was loaded from: the shared library, or the program.
fs::path ownFile() {
    Dl_info info;
    fs::path file;
    if (dladdr(reinterpret_cast<const void*>(&bundleFolder), &info) != 0 && info.dli_fname)
        file = info.dli_fname;
    std::error_code ignored;
    // A program goes by the name that it was called by.
    if (!file.is_absolute()) file = fs::read_symlink("/proc/self/exe", ignored);
    const fs::path real = fs::canonical(file, ignored);
    return real.empty() ? file : real;
}

}  // namespace

std::string bundleFolder() {
    const fs::path own = ownFile();
    for (fs::path above = own.parent_path(); above.has_relative_path();
         above = above.parent_path()) {
        const fs::path folder = above / WYNCONFIG_DATA / "wynconfig";
        std::error_code ignored;
        // English has every text.
        if (fs::exists(folder / "en.res", ignored)) return folder.string();
    }
    return (fs::path(WYNCONFIG_INSTALLED_DATA) / "wynconfig").string();
}

}  // namespace wynconfig
