// A session as the host reads it from its record.
#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "wynconfig/dataset.h"

namespace host {

/// How a window of the other program would be found. This host looks for no windows.
struct WindowSearch {
    std::string title;
    std::string titleMatch;  ///< "contains", "starts with" or "matches"
    bool titleCaseSensitive = false;
    std::string windowClass;
    std::string classMatch;
    bool classCaseSensitive = false;
    std::string delay;  ///< as stored
};

struct Session {
    std::string name;
    std::string programPath;  ///< as stored, perhaps in double quotes
    std::string commandLineArgs;
    bool reverseList = false;
    bool autoResize = false;
    std::string orientation;           ///< "top", "bottom", "right" or "left"
    std::vector<std::string> formats;  ///< names of the part formats for the program, in order
    WindowSearch window;
    bool launchDisabled = false;
    std::string launchDelay;  ///< as stored
    std::string fileFormat;   ///< name of the file's part format; empty: none
    std::string fileName;
    std::string fileFolder;
    bool append = false;
    bool writeFileOnly = false;
};

/// Reads a record of type "MORAM". A missing text is empty and a missing switch off; a switch is on
/// for exactly "true".
Session readSession(const wynconfig::Dataset& record);

/// The time between the start of the program and the handing over of the list.
std::chrono::milliseconds launchDelay(const Session& session);

/// What the session says besides and this host only tells: a label and a value each.
std::vector<std::pair<std::string, std::string>> furtherFacts(const Session& session);

/// What the host makes of settings that it can't take at their word, a sentence each.
std::vector<std::string> remarksOn(const Session& session);

}  // namespace host
