// The steps of the tour through the maintenance dialog, the session manager, and another store.
#pragma once

#include "tour/tour.h"

namespace host {

/// Makes a session, edits one and deletes one.
void maintainSessions(Tour& tour);
/// Edits the session list of the workplace, and picks a session from it.
void useSessionList(Tour& tour);
/// Sets the component to the other store and back.
void openOtherStore(Tour& tour);

}  // namespace host
