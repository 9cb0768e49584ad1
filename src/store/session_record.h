// What is done to a session's record beside reading and writing single values.
#pragma once

#include <string>
#include <vector>

#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig::session {

/// Whether a key is that of a part format which a session offers, whatever its number.
bool isFormatKey(const std::string& key);

/// Carries a part format's new name through the record of a session, or closes the gap that a
/// deleted one leaves. Only the first row that names it is handled; `PartFormat` never is.
/// @param newName  empty: the part format was deleted
/// Raises `Error` where a row is absent or the count is no number; rows changed by then stay so.
void carryFormat(Dataset& record, const std::string& oldName, const std::string& newName);

/// Gives a part format another name wherever a session names it, in any case and whatever it says
/// of the number of its part formats, the one of its file too; so it differs from `carryFormat`,
/// which follows what the dialogs do.
/// @return whether the session names it
bool renameFormat(Dataset& record, const std::string& oldName, const std::string& newName);

/// The part formats that a session offers, in the order of their rows, whatever it says of their
/// number.
std::vector<std::string> offeredFormats(const Dataset& record);

/// Whether a part format is the only one of a session. Raises like `carryFormat`.
bool isOnlyFormat(const Dataset& record, const std::string& name);

/// Whether a plain file lies at the path of a program, which may stand in double quotes. With a
/// quote in front the last character goes too, without being looked at.
bool programExists(std::string path);

}  // namespace wynconfig::session
