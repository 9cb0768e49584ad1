// What is done to a session's record beside reading and writing single values.
#pragma once

#include <array>
#include <string>

#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig::session {

/// The dialog that writes a key.
enum class Writer { Session, Advanced, FileWriter };

/// One key of a session that has one part format.
struct Key {
    const std::string& name;
    Writer writer;
};

/// All keys of a session with one part format, in the order of writing.
const std::array<Key, 21>& keys();

/// Carries a part format's new name through the record of a session, or closes the gap that a
/// deleted one leaves. Only the first row that names it is handled; `PartFormat` never is.
/// @param newName  empty: the part format was deleted
/// Raises `Error` where a row is absent or the count is no number; rows changed by then stay so.
void carryFormat(Dataset& record, const std::string& oldName, const std::string& newName);

/// Whether a part format is the only one of a session. Raises like `carryFormat`.
bool isOnlyFormat(const Dataset& record, const std::string& name);

/// Puts a row in place of the one of its key, if there is one, at the end of the record.
/// The two steps fail one by one: `run` is what guards a statement.
template <class Guard>
void replaceRow(Guard& run, Dataset& record, const std::string& key, const std::string& value) {
    run([&] { record.DeleteRow(key); });
    run([&] { record.AddRow({key, value}); });
}

}  // namespace wynconfig::session
