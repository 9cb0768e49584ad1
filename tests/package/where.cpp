// Tells where the texts are, and of which version the library is.
#include <wynconfig/resource_manager.h>
#include <wynconfig/version.h>

#include <filesystem>
#include <iostream>
#include <string>

int main() {
    static_assert(WYNCONFIG_VERSION > 0);
    const std::string folder = wynconfig::bundleFolder();
    const bool asBuilt = std::filesystem::equivalent(folder, WYNCONFIG_RESOURCES);
    std::cout << folder << '\n'
              << (asBuilt ? "as it was built with" : "elsewhere") << '\n'
              << wynconfig::versionText() << '\n'
              << wynconfig::bundleLanguages(folder).size() << " languages\n";
    return wynconfig::version() == WYNCONFIG_VERSION ? 0 : 1;
}
