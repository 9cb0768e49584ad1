// Carrying a part format's new name, or its deletion, through the sessions that refer to it.
#pragma once

#include <string>

#include "wynconfig/dataset.h"

namespace wynconfig {

/// Whether a part format is the only one of some session in the session folder. A session that
/// can't be loaded shows a box; one whose rows can't be read is passed over in silence.
/// @param session  out: the first such session in the order of the listing, or empty
bool isOnlyFormatOfASession(const std::string& format, std::string& session);

/// Carries a new name, or with an empty one the deletion, through every session file, each of which
/// is written anew. All files are written with one flush of the disk, each wholly old or wholly new
/// at any moment; those before a failure are in place by the time that it is told. Of what another
/// program saves meanwhile nothing is lost, and what it deletes stays deleted. In the in-memory
/// mode nothing happens.
void carryFormatThroughSessions(const std::string& oldName, const std::string& newName);

/// The same for one record, in memory. A row that can't be read ends it, in silence.
void carryFormatThroughRecord(Dataset& record, const std::string& oldName,
                              const std::string& newName);

}  // namespace wynconfig
