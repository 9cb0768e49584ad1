// The keys of a session's record.
#pragma once

#include <string>
#include <vector>

namespace wynconfig {

/// The keys of a session with one part format, as a first save writes them.
inline const std::vector<std::string> kSessionKeys{"ProgramPath",
                                                   "CommandLineArgs",
                                                   "ReverseList",
                                                   "AutoResize",
                                                   "Orientation",
                                                   "FormatCount",
                                                   "FORMAT1",
                                                   "WindowTitleSearchType",
                                                   "WindowClassSearchType",
                                                   "WindowTitle",
                                                   "WindowClass",
                                                   "DisableProgramLaunch",
                                                   "WindowTitleClassDelay",
                                                   "ProgramLaunchDelay",
                                                   "WindowTitleCaseSensitive",
                                                   "WindowClassCaseSensitive",
                                                   "PartFormat",
                                                   "FileName",
                                                   "FileFolder",
                                                   "FileAction",
                                                   "WriteFileOnly"};

}  // namespace wynconfig
