// The steps of the tour that work in memory, on the database.
#pragma once

#include "tour/tour.h"

namespace host {

/// Migrates a session and keeps it.
void takeSessionOver(Tour& tour);
/// Edits it with its part formats.
void configureInMemory(Tour& tour);
/// Edits it while another workstation changes it, and saves the edit under another name.
void beRefused(Tour& tour);
void addAndRemoveInDatabase(Tour& tour);

}  // namespace host
