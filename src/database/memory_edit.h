// One edit in memory: what the component was handed, what came back, and what that means for the
// database.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "wynconfig/memory_sessions.h"

namespace wynconfig {

/// Reads XML text as a record that bears a name.
/// Raises `DatabaseError` when it is none.
/// @param type  "MORAM" or "PARTFORMAT"
ItemText readItem(const std::string& xml, const std::string& type);

/// Whether two texts are records of the same name and rows, in whatever order.
bool sameRecord(const std::string& xml, const std::string& other);

/// What an edit wants changed: a renamed session or part format leaves its old name; a part format
/// that did not come back is deleted; one that the session uses has to be there.
std::vector<ItemChange> changesOf(const MemoryEdit& edit);

/// The edit as one that nothing stands in the way of, see `MemorySessions::storeUnderAnotherName`.
/// @param conflicts     on which the edit failed
/// @param takenFormats  upper-cased names that a part format can't get
MemoryEdit underAnotherName(MemoryEdit edit, const std::string& name,
                            const std::vector<ItemConflict>& conflicts,
                            std::set<std::string> takenFormats);

}  // namespace wynconfig
