// Reading a session's record.
#include "sending/session.h"

#include <algorithm>
#include <limits>

#include "sending/record_reader.h"
#include "sending/stored_number.h"
#include "texts/phrase.h"
#include "wynconfig/keys.h"

namespace host {

namespace session = wynconfig::session;
namespace words = wynconfig::words;

namespace {

using std::chrono::milliseconds;

constexpr double kLongestDelaySeconds = 3600;
constexpr double kMillisecondsPerSecond = 1000;

bool storedSwitch(const wynconfig::Dataset& record, const std::string& key) {
    return storedText(record, key) == words::kTrue;
}

/// One of the values that a key may have; any other text reads as the last of them.
std::string storedChoice(const wynconfig::Dataset& record, const std::string& key,
                         const std::vector<std::string>& values) {
    const auto found = std::find(values.begin(), values.end(), storedText(record, key));
    return found == values.end() ? values.back() : *found;
}

std::vector<std::string> storedFormats(const wynconfig::Dataset& record) {
    const auto count = storedCount(storedText(record, session::kFormatCount),
                                   static_cast<long>(record.Rows().size()));
    std::vector<std::string> formats;
    for (long number = 1; count && number <= *count; ++number) {
        const std::string name = storedText(record, session::formatKey(number));
        if (!name.empty()) formats.push_back(name);
    }
    return formats;
}

/// The none entry is a text in "<" and ">" whose words depend on the language; no part format's
/// name can hold these characters.
std::string storedFileFormat(const wynconfig::Dataset& record) {
    const std::string name = storedText(record, session::kPartFormat);
    return name.find('<') == std::string::npos ? name : std::string();
}

WindowSearch storedWindowSearch(const wynconfig::Dataset& record) {
    const std::vector<std::string> matches = {words::kStartsWith, words::kMatches,
                                              words::kContains};
    WindowSearch search;
    search.title = storedText(record, session::kWindowTitle);
    search.titleMatch = storedChoice(record, session::kWindowTitleSearchType, matches);
    search.titleCaseSensitive = storedSwitch(record, session::kWindowTitleCaseSensitive);
    search.windowClass = storedText(record, session::kWindowClass);
    search.classMatch = storedChoice(record, session::kWindowClassSearchType, matches);
    search.classCaseSensitive = storedSwitch(record, session::kWindowClassCaseSensitive);
    search.delay = storedText(record, session::kWindowTitleClassDelay);
    return search;
}

std::string orientationText(const std::string& side) {
    return phrase(side == words::kTop      ? "FACT_TOP"
                  : side == words::kBottom ? "FACT_BOTTOM"
                  : side == words::kRight  ? "FACT_RIGHT"
                                           : "FACT_LEFT");
}

std::string searchText(const std::string& match, const std::string& text, bool caseSensitive) {
    if (text.empty()) return phrase("FACT_ANY");
    const char* key = match == words::kStartsWith ? "FACT_STARTS_WITH"
                      : match == words::kMatches  ? "FACT_MATCHES"
                                                  : "FACT_CONTAINS";
    return phrase("JOIN_COMMA",
                  {phrase(key, {text}), phrase(caseSensitive ? "FACT_CASE" : "FACT_NO_CASE")});
}

}  // namespace

Session readSession(const wynconfig::Dataset& record) {
    Session session;
    session.name = record.Name();
    session.programPath = storedText(record, session::kProgramPath);
    session.commandLineArgs = storedText(record, session::kCommandLineArgs);
    session.reverseList = storedSwitch(record, session::kReverseList);
    session.autoResize = storedSwitch(record, session::kAutoResize);
    session.orientation = storedChoice(record, session::kOrientation,
                                       {words::kTop, words::kBottom, words::kRight, words::kLeft});
    session.formats = storedFormats(record);
    session.window = storedWindowSearch(record);
    session.launchDisabled = storedSwitch(record, session::kDisableProgramLaunch);
    session.launchDelay = storedText(record, session::kProgramLaunchDelay);
    session.fileFormat = storedFileFormat(record);
    session.fileName = storedText(record, session::kFileName);
    session.fileFolder = storedText(record, session::kFileFolder);
    session.append = storedText(record, session::kFileAction) == words::kAppend;
    session.writeFileOnly = storedSwitch(record, session::kWriteFileOnly);
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
        {phrase("FACT_WINDOW_TITLE"),
         searchText(window.titleMatch, window.title, window.titleCaseSensitive)},
        {phrase("FACT_WINDOW_CLASS"),
         searchText(window.classMatch, window.windowClass, window.classCaseSensitive)},
        {phrase("FACT_SEARCH_DELAY"), window.delay.empty() ? phrase("FACT_NONE") : window.delay},
        {phrase("FACT_ORIENTATION"), orientationText(session.orientation)},
        {phrase("FACT_AUTO_RESIZE"), phrase(session.autoResize ? "FACT_YES" : "FACT_NO")},
    };
}

std::vector<std::string> remarksOn(const Session& session) {
    const std::optional<double> seconds = storedNumber(session.launchDelay);
    if (session.launchDelay.empty()) return {};
    if (!seconds || *seconds < 0)
        return {phrase("REMARK_DELAY_NO_NUMBER", {session.name, session.launchDelay})};
    if (*seconds > kLongestDelaySeconds)
        return {phrase("REMARK_DELAY_CUT", {session.name, session.launchDelay})};
    return {};
}

}  // namespace host
