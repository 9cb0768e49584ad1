// Small routines that more than one dialog needs: names, lists, and bringing a dialog to the front.
#pragma once

#include <string>

#include "platform/records/collection.h"
#include "wynconfig/controls.h"
#include "wynconfig/dataset.h"
#include "wynconfig/form.h"

namespace wynconfig {

/// The second line of the box that refuses the name of a session or part format, the same in all
/// languages.
inline const std::string kForbiddenInNames = "         \\ / : * ? \" < > | .";
/// The second line of the box that refuses an output file's name. It differs from the one above:
/// no point, and a blank behind.
inline const std::string kForbiddenInFileNames = "         \\ / : * ? \" < > | ";

/// Puts a form's window in front of all others, for good or no longer.
void SetTopMost(Form& form, bool bTopMost);

/// True when a name must be refused as that of a session or part format: its trimmed form holds one
/// of \ / : * ? " < > | and the point, or reads as a number. An empty name is not refused here.
/// Raises errc::Overflow for a trimmed name of more than 32,767 characters.
bool IsInvalidName(const std::string& sName);

/// The same for the name of an output file, in which a point is allowed.
bool IsInvalidFileName(const std::string& sName);

/// Whether a list has a row with this key, with regard to case.
bool IsItemInUniListView(const ListView& list, const std::string& sName);

/// Whether a Collection holds this key, without regard to case.
bool IsItemInCollection(const Collection<Dataset>& items, const std::string& sKey);

/// Whether a name's item file exists in the session folder. In the in-memory mode such a session is
/// a factory session.
bool IsFactorySession(const std::string& sName);

/// The same for the part format folder.
bool IsFactoryPartFormat(const std::string& sName);

/// Brings a part format of the store into `g_PartFormats`, under the name as given, in place of the
/// one that may be there.
/// @return whether the format's file was found and read; a failure shows a box and gives false
bool AddFDToConfigPartFormats(const std::string& sName);

}  // namespace wynconfig
