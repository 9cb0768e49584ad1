// The rows of a session's record, and their keys.
#pragma once

#include <string>
#include <vector>

#include "support/rows.h"

namespace wynconfig {

/// What the advanced dialog writes into a session that has none of its rows.
inline const Stored kAdvancedDefaults{{"WindowTitleSearchType", "contains"},
                                      {"WindowClassSearchType", "contains"},
                                      {"WindowTitle", ""},
                                      {"WindowClass", ""},
                                      {"DisableProgramLaunch", "false"},
                                      {"WindowTitleClassDelay", "0"},
                                      {"ProgramLaunchDelay", "0"},
                                      {"WindowTitleCaseSensitive", "true"},
                                      {"WindowClassCaseSensitive", "false"}};

/// No value of these is a default; the two constants, which no reader asks for, stand the wrong way
/// round.
inline const Stored kOwnAdvanced{
    {"WindowTitleSearchType", "matches"}, {"WindowClassSearchType", "starts with"},
    {"WindowTitle", "Parts Desk"},        {"WindowClass", "PartsMain"},
    {"DisableProgramLaunch", "true"},     {"WindowTitleClassDelay", "3"},
    {"ProgramLaunchDelay", "7"},          {"WindowTitleCaseSensitive", "false"},
    {"WindowClassCaseSensitive", "true"}};

/// The row of the file-writer dialog that names no part format.
inline const std::string kNoneRow = "<{ADD_MORAM_CONFIG_NONE}>";

/// What the file-writer dialog writes into a session that has none of its rows.
inline const Stored kFileWriterDefaults{{"PartFormat", kNoneRow},
                                        {"FileName", ""},
                                        {"FileFolder", ""},
                                        {"FileAction", "OverWrite"},
                                        {"WriteFileOnly", "false"}};

/// A session with the one part format "CSV", as a first save writes it.
inline const Stored kNewSession = [] {
    Stored rows{{"ProgramPath", "/programs/parts.exe"},
                {"CommandLineArgs", ""},
                {"ReverseList", "true"},
                {"AutoResize", "true"},
                {"Orientation", "top"},
                {"FormatCount", "1"},
                {"FORMAT1", "CSV"}};
    rows.insert(rows.end(), kAdvancedDefaults.begin(), kAdvancedDefaults.end());
    rows.insert(rows.end(), kFileWriterDefaults.begin(), kFileWriterDefaults.end());
    return rows;
}();

/// The keys of such a session, in the order in which they are stored.
inline const std::vector<std::string> kSessionKeys = keysOf(kNewSession);

}  // namespace wynconfig
