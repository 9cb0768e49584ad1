// What to do with an edit that the database refused.
#pragma once

#include <optional>
#include <string>

#include "wynconfig/memory_sessions.h"

class QWidget;

namespace host {

struct RefusalDecision {
    bool again = false;  ///< store it once more as it is
    std::string name;    ///< otherwise: store it under this name
};

/// Shows the reason and the edited texts, and asks what to do.
/// @return none: leave it; the database's content counts for now
std::optional<RefusalDecision> askAboutRefusal(QWidget* window,
                                               const wynconfig::RefusedEdit& refused);

}  // namespace host
