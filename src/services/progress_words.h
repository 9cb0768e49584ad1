// What a person reads while the component works through many items.
#pragma once

#include "platform/forms/working.h"

namespace wynconfig {

// Each fetches its words from the host's resource manager; where that can't give them, or gives
// none, they are English.

/// Looking whether a session would be left without a part format.
Working::Words checkingSessions();
/// Carrying a change of a part format through the sessions.
Working::Words updatingSessions();
/// Putting the changed sessions in place of the old ones.
Working::Words savingSessions();
Working::Words listingSessions();
Working::Words listingFormats();
/// Taking part formats from a host or another store, or handing them to the host.
Working::Words transferringFormats();

}  // namespace wynconfig
