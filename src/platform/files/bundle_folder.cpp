// Where the texts lie, told by where the component runs.
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/files/own_file.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

/// Whether texts lie in a folder. English has every text.
bool holdsTexts(const fs::path& folder) {
    std::error_code ignored;
    return fs::exists(folder / "en.xlf", ignored);
}

std::string textOf(const fs::path& folder) {
    const std::u8string text = folder.u8string();
    return {text.begin(), text.end()};
}

}  // namespace

std::string bundleFolder() {
    const fs::path own = ownFile();
    const fs::path beside = own.parent_path() / "texts";
    if (mayHaveTextsBeside() && holdsTexts(beside)) return textOf(beside);
    for (fs::path above = own.parent_path(); above.has_relative_path();
         above = above.parent_path()) {
        const fs::path folder = above / WYNCONFIG_DATA / "wynconfig";
        if (holdsTexts(folder)) return textOf(folder);
    }
    return textOf(fs::path(WYNCONFIG_INSTALLED_DATA) / "wynconfig");
}

}  // namespace wynconfig
