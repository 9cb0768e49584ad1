// Reading a session's record.
#include "session.h"

#include <algorithm>
#include <limits>

#include "record_reader.h"
#include "stored_number.h"

namespace host {

namespace {

using std::chrono::milliseconds;

constexpr double kLongestDelaySeconds = 3600;
constexpr double kMillisecondsPerSecond = 1000;

bool storedSwitch(const wynconfig::Dataset& record, const std::string& key) {
    return storedText(record, key) == "true";
}

/// One of the values that a key may have; any other text reads as the last of them.
std::string storedChoice(const wynconfig::Dataset& record, const std::string& key,
                         const std::vector<std::string>& values) {
    const auto found = std::find(values.begin(), values.end(), storedText(record, key));
    return found == values.end() ? values.back() : *found;
}

std::vector<std::string> storedFormats(const wynconfig::Dataset& record) {
    const auto count =
        storedCount(storedText(record, "FormatCount"), static_cast<long>(record.Rows().size()));
    std::vector<std::string> formats;
    for (long number = 1; count && number <= *count; ++number) {
        const std::string name = storedText(record, "FORMAT" + std::to_string(number));
        if (!name.empty()) formats.push_back(name);
    }
    return formats;
}

/// The none entry is a text in "<" and ">" whose words depend on the language; no part format's
/// name can hold these characters.
std::string storedFileFormat(const wynconfig::Dataset& record) {
    const std::string name = storedText(record, "PartFormat");
    return name.find('<') == std::string::npos ? name : std::string();
}

WindowSearch storedWindowSearch(const wynconfig::Dataset& record) {
    const std::vector<std::string> matches = {"starts with", "matches", "contains"};
    WindowSearch search;
    search.title = storedText(record, "WindowTitle");
    search.titleMatch = storedChoice(record, "WindowTitleSearchType", matches);
    search.titleCaseSensitive = storedSwitch(record, "WindowTitleCaseSensitive");
    search.windowClass = storedText(record, "WindowClass");
    search.classMatch = storedChoice(record, "WindowClassSearchType", matches);
    search.classCaseSensitive = storedSwitch(record, "WindowClassCaseSensitive");
    search.delay = storedText(record, "WindowTitleClassDelay");
    return search;
}

std::string searchText(const std::string& match, const std::string& text, bool caseSensitive) {
    if (text.empty()) return "any";
    return match + " \"" + text + "\", " + (caseSensitive ? "case counts" : "case does not count");
}

}  // namespace

Session readSession(const wynconfig::Dataset& record) {
    Session session;
    session.name = record.Name();
    session.programPath = storedText(record, "ProgramPath");
    session.commandLineArgs = storedText(record, "CommandLineArgs");
    session.reverseList = storedSwitch(record, "ReverseList");
    session.autoResize = storedSwitch(record, "AutoResize");
    session.orientation = storedChoice(record, "Orientation", {"top", "bottom", "right", "left"});
    session.formats = storedFormats(record);
    session.window = storedWindowSearch(record);
    session.launchDisabled = storedSwitch(record, "DisableProgramLaunch");
    session.launchDelay = storedText(record, "ProgramLaunchDelay");
    session.fileFormat = storedFileFormat(record);
    session.fileName = storedText(record, "FileName");
    session.fileFolder = storedText(record, "FileFolder");
    session.append = storedText(record, "FileAction") == "Append";
    session.writeFileOnly = storedSwitch(record, "WriteFileOnly");
    return session;
}

milliseconds launchDelay(const Session& session) {
    const double seconds = storedNumber(session.launchDelay).value_or(0);
    return milliseconds(static_cast<milliseconds::rep>(
        std::clamp(seconds, 0.0, kLongestDelaySeconds) * kMillisecondsPerSecond));
}

std::vector<std::pair<std::string, std::string>> furtherFacts(const Session& session) {
    const WindowSearch& window = session.window;
    return {
        {"Window title", searchText(window.titleMatch, window.title, window.titleCaseSensitive)},
        {"Window class",
         searchText(window.classMatch, window.windowClass, window.classCaseSensitive)},
        {"Window search delay", window.delay.empty() ? "none" : window.delay},
        {"Orientation", session.orientation},
        {"Automatic resize", session.autoResize ? "yes" : "no"},
    };
}

std::vector<std::string> remarksOn(const Session& session) {
    const std::optional<double> seconds = storedNumber(session.launchDelay);
    const std::string lead =
        session.name + ": the program launch delay \"" + session.launchDelay + "\" ";
    if (session.launchDelay.empty()) return {};
    if (!seconds || *seconds < 0) return {lead + "is no number from 0 up, so there is no delay."};
    if (*seconds > kLongestDelaySeconds) return {lead + "is cut to an hour."};
    return {};
}

}  // namespace host
