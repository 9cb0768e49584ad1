// A host in a terminal: terminal_view FOLDER adds a session to the store in a folder.
#include <wynconfig/resource_manager.h>
#include <wynconfig/wynconfig.h>

#include <iostream>
#include <memory>
#include <string>

#include "terminal_view.h"

int main(int count, char* arguments[]) {
    if (count != 2) {
        std::cerr << "usage: terminal_view FOLDER\n";
        return 2;
    }
    wynconfig::installView(std::make_shared<TerminalView>(std::cin, std::cout));
    wynconfig::WYNConfig config;
    config.InitResourceManager(wynconfig::makeBundleResourceManager(WYNCONFIG_RESOURCES));
    config.init(arguments[1] + std::string("/"));
    std::string name;
    const long result = config.showAddMORAMConfigDlg(name);
    std::cout << (result == 0 ? "added " + name : "nothing was added") << '\n';
    return static_cast<int>(result);
}
