// One edit in memory: what the component was handed, what came back, and what that means for the
// database.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "database/session_database.h"

namespace host {

/// The record of a session or part format, outside the database.
struct Item {
    std::string name;  ///< in upper case
    std::string xml;
};

/// Reads XML text as a record that bears a name.
/// Raises `DatabaseError` when it is none.
/// @param type  "MORAM" or "PARTFORMAT"
Item readItem(const std::string& xml, const std::string& type);

/// Whether two texts are records of the same name and rows, in whatever order.
bool sameRecord(const std::string& xml, const std::string& other);

/// A session and the part formats of the user, before and after an edit.
struct MemoryEdit {
    std::optional<StoredItem> sessionBefore;  ///< none: the session is new
    std::vector<StoredItem> formatsBefore;    ///< all that were handed in
    Item session;
    std::vector<Item> formats;  ///< all that came back, but for factory ones
};

/// What an edit wants changed: a renamed session or part format leaves its old name; a part format
/// that did not come back is deleted; one that the session uses has to be there.
std::vector<Change> changesOf(const MemoryEdit& edit);

/// The edit as one that nothing stands in the way of: the session gets another name; a part format
/// whose name was taken or changed meanwhile gets a number behind its name, and the session
/// follows; what another workstation changed is not deleted.
/// @param conflicts     on which the edit failed
/// @param takenFormats  upper-cased names that a part format can't get
MemoryEdit underAnotherName(MemoryEdit edit, const std::string& name,
                            const std::vector<Conflict>& conflicts,
                            std::set<std::string> takenFormats);

}  // namespace host
