// The operations of the component that the host offers.
#include "operations.h"

namespace host {

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all = {
        {"add", "&Add session…", "Makes a new session and opens it", "Ctrl+N", false,
         [](wynconfig::WYNConfig& component, const std::string&) {
             Outcome outcome;
             outcome.result = component.showAddMORAMConfigDlg(outcome.name);
             return outcome;
         }},
        {"configure", "&Configure session…", "Opens the selected session", "Ctrl+Return", true,
         [](wynconfig::WYNConfig& component, const std::string& session) {
             Outcome outcome{0, session};
             outcome.result = component.showMORAMConfigDlg(outcome.name);
             return outcome;
         }},
    };
    return all;
}

}  // namespace host
