// What the host offers of the component: one table, from which its buttons and menu are made.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "wynconfig/wynconfig.h"

namespace host {

/// What an operation gave back.
struct Outcome {
    long result = 0;   ///< 0: the user confirmed, 1: the user did not
    std::string name;  ///< the session that it ended on; may be empty
};

/// One operation of the component.
struct Operation {
    const char* id;        ///< for code that looks it up
    const char* caption;   ///< with its mnemonic
    const char* tip;       ///< one sentence for the status bar
    const char* shortcut;  ///< key sequence; empty: none
    bool needsSession;     ///< works on the session selected in the panel
    /// Calls the component.
    /// @param session  the selected session, or the empty string
    std::function<Outcome(wynconfig::WYNConfig& component, const std::string& session)> call;
};

/// All operations, in the order in which they are offered.
const std::vector<Operation>& operations();

}  // namespace host
