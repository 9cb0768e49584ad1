// What a session record holds: its keys, in the order in which a first save writes them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "wynconfig/dataset.h"

namespace wynconfig::session {

/// Type name of the record.
inline constexpr std::string_view kType = "MORAM";
/// The columns of every record, the first being the key.
inline const std::array<std::string, 2> kColumns{"Element", "Data"};

// Written by the session dialog.
inline const std::string ProgramPath = "ProgramPath";
inline const std::string CommandLineArgs = "CommandLineArgs";
inline const std::string ReverseList = "ReverseList";
inline const std::string AutoResize = "AutoResize";
inline const std::string Orientation = "Orientation";
inline const std::string FormatCount = "FormatCount";
/// Key of the selected part format of a number, from 1.
std::string FORMAT(int number);

// Written by the advanced dialog.
inline const std::string WindowTitleSearchType = "WindowTitleSearchType";
inline const std::string WindowClassSearchType = "WindowClassSearchType";
inline const std::string WindowTitle = "WindowTitle";
inline const std::string WindowClass = "WindowClass";
inline const std::string DisableProgramLaunch = "DisableProgramLaunch";
inline const std::string WindowTitleClassDelay = "WindowTitleClassDelay";
inline const std::string ProgramLaunchDelay = "ProgramLaunchDelay";
inline const std::string WindowTitleCaseSensitive = "WindowTitleCaseSensitive";
inline const std::string WindowClassCaseSensitive = "WindowClassCaseSensitive";

// Written by the file-writer dialog.
inline const std::string PartFormat = "PartFormat";
inline const std::string FileName = "FileName";
inline const std::string FileFolder = "FileFolder";
inline const std::string FileAction = "FileAction";
inline const std::string WriteFileOnly = "WriteFileOnly";

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

/// "true" or "false", the form in which a switch is stored.
std::string switchText(bool on);

/// Puts a row in place of the one of its key, if there is one, at the end of the record.
/// The two steps fail one by one: `run` is what guards a statement.
template <class Guard>
void replaceRow(Guard& run, Dataset& record, const std::string& key, const std::string& value) {
    run([&] { record.DeleteRow(key); });
    run([&] { record.AddRow({key, value}); });
}

}  // namespace wynconfig::session
