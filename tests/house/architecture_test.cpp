// Reads the source tree: who may include what.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <ostream>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

const fs::path kRoot = WYNCONFIG_SOURCE;

/// One `#include` line.
struct Include {
    std::string file;  ///< the including file, from the root
    std::string name;  ///< what is included
    bool angled;       ///< `<name>`, not `"name"`
    bool operator==(const Include&) const = default;
};

void PrintTo(const Include& include, std::ostream* out) {
    *out << include.file << " includes " << include.name;
}

bool isSource(const fs::path& path) {
    const std::string extension = path.extension().string();
    return extension == ".h" || extension == ".cpp";
}

/// The sources and headers below a folder, from the root.
Names sourcesBelow(const std::string& folder) {
    Names found;
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
        if (entry.is_regular_file() && isSource(entry.path()))
            found.push_back(fs::relative(entry.path(), kRoot).generic_string());
    }
    return found;
}

std::vector<Include> includesOf(const std::string& path) {
    static const std::regex line(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)re");
    std::vector<Include> found;
    std::ifstream file(kRoot / path);
    std::smatch match;
    for (std::string text; std::getline(file, text);) {
        if (std::regex_match(text, match, line)) found.push_back({path, match[2], match[1] == "<"});
    }
    return found;
}

std::vector<Include> includesBelow(const std::string& folder) {
    std::vector<Include> found;
    for (const std::string& file : sourcesBelow(folder)) {
        const auto all = includesOf(file);
        found.insert(found.end(), all.begin(), all.end());
    }
    return found;
}

bool startsWithAny(const std::string& text, const Names& heads) {
    return std::any_of(heads.begin(), heads.end(),
                       [&](const std::string& head) { return text.starts_with(head); });
}

// ---------------------------------------------------------------------------------------------
// What lies outside this tree.

/// Of Qt, its core and its databases are told apart from what has windows.
enum class Foreign { Standard, QtCore, QtSql, Qt, Icu, Xml, Windows, System };

Foreign kindOf(const std::string& name) {
    static const std::regex standard("[a-z_]+|std(def|int)\\.h");  // C's as well
    static const std::regex qt(R"(Qt?[A-Z].*|Qt.*/.*|q[a-z]+\.h)");
    static const std::regex qtCore(
        "Q(ByteArray|Char|CoreApplication|DateTime|File|List|RegularExpression|String|StringList|"
        "Url|UrlQuery|Uuid|"
        "Variant|VariantList)");
    // Those of its windows alone.
    static const std::regex windows("(commctrl|uxtheme|initguid|oleacc|shlobj|shobjidl)\\.h");
    if (std::regex_match(name, standard)) return Foreign::Standard;
    if (std::regex_match(name, qtCore)) return Foreign::QtCore;
    if (name.starts_with("QSql")) return Foreign::QtSql;
    if (std::regex_match(name, qt)) return Foreign::Qt;
    if (name.starts_with("unicode/")) return Foreign::Icu;
    if (name == "expat.h") return Foreign::Xml;
    if (std::regex_match(name, windows)) return Foreign::Windows;
    return Foreign::System;
}

TEST(Architecture, TheTestTellsWhatIsForeign) {
    for (const std::string name : {"QWidget", "QtWidgets/QWidget", "QtCore", "qglobal.h"})
        EXPECT_EQ(kindOf(name), Foreign::Qt) << name;
    for (const std::string name : {"queue", "string_view", "system_error", "stdint.h"})
        EXPECT_EQ(kindOf(name), Foreign::Standard) << name;
    for (const std::string name : {"sys/stat.h", "unistd.h", "windows.h", "stdio.h", "dirent.h"})
        EXPECT_EQ(kindOf(name), Foreign::System) << name;
    EXPECT_EQ(kindOf("QString"), Foreign::QtCore);
    EXPECT_EQ(kindOf("QSqlQuery"), Foreign::QtSql);
    EXPECT_EQ(kindOf("unicode/uchar.h"), Foreign::Icu);
    EXPECT_EQ(kindOf("expat.h"), Foreign::Xml);
    EXPECT_EQ(kindOf("commctrl.h"), Foreign::Windows);
}

// ---------------------------------------------------------------------------------------------
// The rooms of the component, and the walls between them.

/// A room is a folder of src/ with its headers in include/wynconfig/.
struct Room {
    std::string folder;
    Names below;  ///< the rooms that it builds on; one that ends in / stands for all in its folder
    std::set<Foreign> foreign;
};

const std::vector<Room> kRooms{
    {"platform/text", {}, {}},
    {"platform/threads", {}, {}},
    {"platform/files", {"platform/text"}, {Foreign::System}},
    {"platform/records", {"platform/text", "platform/files"}, {Foreign::Xml}},
    {"platform/forms", {"platform/text"}, {}},
    {"platform/resources", {"platform/records", "platform/text"}, {Foreign::Xml}},
    {"store", {"platform/"}, {}},
    {"services", {"store", "platform/"}, {}},
    {"dialogs/partformat", {"services", "store", "platform/"}, {}},
    {"dialogs/session", {"dialogs/partformat", "services", "store", "platform/"}, {}},
    {"core", {"dialogs/", "services", "store", "platform/"}, {}},
    // A view knows controls, Form and View, and no dialog.
    {"views/scripted", {"platform/forms", "platform/text"}, {}},
    {"views/qt", {"platform/forms", "platform/text"}, {Foreign::Qt, Foreign::QtCore}},
    {"views/win32", {"platform/forms", "platform/text"}, {Foreign::Windows}},
    // The C interface is a shell around the public face.
    {"c/qt", {"c", "platform/", "views/qt"}, {}},
    {"c", {"core", "store", "platform/", "views/scripted"}, {}},
    // The COM server is a shell likewise.
    {"com", {"core", "store", "platform/", "views/win32"}, {Foreign::Windows, Foreign::System}},
    {"database", {"core", "store", "platform/"}, {Foreign::QtCore, Foreign::QtSql}},
};

/// The rooms of the public headers.
const std::map<std::string, std::string> kHomes{
    {"c.h", "c"},
    {"c_qt.h", "c/qt"},
    {"characters.h", "platform/text"},
    {"controls.h", "platform/forms"},
    {"database.h", "database"},
    {"dataset.h", "platform/records"},
    {"error.h", "platform/text"},
    {"export.h", "platform/text"},
    {"form.h", "platform/forms"},
    {"help.h", "platform/forms"},
    {"item_path.h", "platform/files"},
    {"key_holder.h", "platform/forms"},
    {"keyboard.h", "platform/forms"},
    {"keys.h", "store"},
    {"layout.h", "platform/forms"},
    {"memory_sessions.h", "database"},
    {"mnemonic.h", "platform/forms"},
    {"observer.h", "platform/forms"},
    {"qt_view.h", "views/qt"},
    {"resource_manager.h", "platform/text"},
    {"save_file.h", "platform/files"},
    {"scripted_view.h", "views/scripted"},
    {"store.h", "store"},
    {"type_ahead.h", "platform/forms"},
    {"user.h", "platform/forms"},
    {"version.h", "core"},
    {"view.h", "platform/forms"},
    {"win32_view.h", "views/win32"},
    {"wynconfig.h", "core"},
};

/// Standard headers that only one room, or nobody, may include: files have one door, and numbers
/// and characters are read by no locale.
const std::map<std::string, std::string> kReserved{
    {"filesystem", "platform/files"},
    {"fstream", "platform/files"},
    {"iostream", ""},
    {"sstream", ""},
    {"iomanip", ""},
    {"locale", ""},
    {"cctype", ""},
    {"thread", ""},
    {"mutex", ""},
};

/// Files that alone in their room know what stands here.
const std::map<std::string, Foreign> kSides{
    {"src/platform/text/locales_icu.cpp", Foreign::Icu},
    {"src/platform/text/locales_win32.cpp", Foreign::System},
    {"src/views/win32/winapi.h", Foreign::System},
};

/// Where two parts call each other, the lower one reaches back, from its source alone.
const std::vector<Include> kReachingBack{
    // The failure box borrows a hidden dialog.
    {"src/services/global_error.cpp", "dialogs/session/frmMORAMMaintenance.h", false},
    // These dialogs offer operations of the component.
    {"src/dialogs/session/frmMORAMMaintenance.cpp", "wynconfig/wynconfig.h", false},
    {"src/dialogs/session/frmSessionManager.cpp", "wynconfig/wynconfig.h", false},
    // The texts lie beside the program, not in the store.
    {"src/platform/resources/bundle_resource_manager.cpp", "filesystem", true},
    {"src/platform/resources/bundle_resource_manager.cpp", "fstream", true},
};

/// The room of a file or of what an include names; null for none.
const Room* roomOf(std::string path) {
    for (const std::string head : {"src/", "include/"})
        if (path.starts_with(head)) path.erase(0, head.size());
    const std::string publicFolder = "wynconfig/";
    if (path.starts_with(publicFolder)) {
        const auto home = kHomes.find(path.substr(publicFolder.size()));
        if (home == kHomes.end()) return nullptr;
        path = home->second + "/";
    }
    const auto room = std::find_if(kRooms.begin(), kRooms.end(), [&](const Room& each) {
        return path.starts_with(each.folder + "/");
    });
    return room == kRooms.end() ? nullptr : &*room;
}

bool buildsOn(const Room& room, const Room& other) {
    return std::any_of(room.below.begin(), room.below.end(), [&](const std::string& each) {
        return each.ends_with('/') ? other.folder.starts_with(each) : other.folder == each;
    });
}

/// Whether an include goes through an open door.
bool isAllowed(const Include& include) {
    if (std::count(kReachingBack.begin(), kReachingBack.end(), include) > 0) return true;
    const Room* const room = roomOf(include.file);
    if (!room) return false;
    if (include.angled) {
        const auto reserved = kReserved.find(include.name);
        if (reserved != kReserved.end()) return reserved->second == room->folder;
        const Foreign kind = kindOf(include.name);
        const auto side = kSides.find(include.file);
        return kind == Foreign::Standard || room->foreign.contains(kind) ||
               (side != kSides.end() && side->second == kind);
    }
    const Room* const other = roomOf(include.name);
    return other && (other == room || buildsOn(*room, *other));
}

TEST(Architecture, EveryFileOfTheComponentIsInARoom) {
    for (const std::string folder : {"src", "include"}) {
        const Names sources = sourcesBelow(folder);
        EXPECT_GT(sources.size(), 15U) << folder;
        for (const std::string& file : sources) EXPECT_TRUE(roomOf(file)) << file;
    }
    for (const auto& [header, room] : kHomes) {
        EXPECT_TRUE(fs::exists(kRoot / "include/wynconfig" / header)) << header;
        EXPECT_TRUE(fs::exists(kRoot / "src" / room)) << room;
    }
    for (const Room& room : kRooms) EXPECT_TRUE(fs::exists(kRoot / "src" / room.folder));
}

TEST(Architecture, HeadersAndSourcesIncludeNothingAboveTheirRoom) {
    for (const std::string folder : {"src", "include"}) {
        for (const Include& include : includesBelow(folder))
            EXPECT_TRUE(isAllowed(include)) << testing::PrintToString(include);
    }
}

TEST(Architecture, TheWallsStand) {
    const std::vector<Include> walled{
        {"src/platform/text/text.cpp", "platform/files/file_system.h", false},
        {"src/platform/text/text.h", "unistd.h", true},
        {"src/platform/text/numbers.cpp", "unicode/unum.h", true},
        {"src/platform/text/locales.h", "windows.h", true},
        {"src/platform/text/locales_icu.cpp", "windows.h", true},
        {"src/platform/resources/text_file.cpp", "unicode/utf8.h", true},
        {"src/platform/files/file_system.cpp", "unicode/uchar.h", true},
        {"src/platform/files/file_system.cpp", "platform/records/record_xml.h", false},
        {"src/platform/records/dataset.cpp", "sys/stat.h", true},
        {"src/platform/records/dataset.cpp", "filesystem", true},
        {"src/platform/records/record_xml.cpp", "unicode/utf8.h", true},
        {"src/platform/forms/form.cpp", "wynconfig/dataset.h", false},
        {"src/platform/forms/form.cpp", "platform/files/file_system.h", false},
        {"src/platform/forms/form.cpp", "QWidget", true},
        {"src/store/session_record.cpp", "services/on_error.h", false},
        {"src/store/session_record.cpp", "iostream", true},
        {"src/services/texts.cpp", "dialogs/session/frmMORAMConfig.h", false},
        {"src/services/texts.cpp", "expat.h", true},
        {"src/dialogs/partformat/dlgSingleEntry.cpp", "dialogs/session/frmMORAMConfig.h", false},
        {"src/dialogs/session/frmMORAMConfig.h", "wynconfig/wynconfig.h", false},
        {"src/dialogs/session/frmMORAMConfig.cpp", "core/migration.h", false},
        {"src/core/wynconfig.cpp", "views/scripted/scripted_view.h", false},
        {"src/views/qt/binding.cpp", "dialogs/session/frmMORAMConfig.h", false},
        {"src/views/qt/binding.cpp", "wynconfig/dataset.h", false},
        {"src/views/qt/binding.cpp", "unistd.h", true},
        {"src/views/scripted/scripted_view.cpp", "QWidget", true},
        {"src/views/win32/boxes.cpp", "dialogs/session/frmMORAMConfig.h", false},
        {"src/views/win32/boxes.cpp", "unistd.h", true},
        {"src/views/win32/boxes.cpp", "windows.h", true},
        {"src/views/qt/binding.cpp", "commctrl.h", true},
        {"src/core/wynconfig.cpp", "windows.h", true},
        {"src/views/scripted/scripted_view.cpp", "views/qt/binding.h", false},
        {"src/database/connection.cpp", "QMessageBox", true},
        {"src/database/connection.cpp", "services/texts.h", false},
        {"src/store/store.cpp", "wynconfig/database.h", false},
        {"src/views/user.cpp", "views/scripted/person/person.h", false},
        {"include/wynconfig/controls.h", "wynconfig/wynconfig.h", false},
        {"include/wynconfig/new.h", "wynconfig/error.h", false},
    };
    for (const Include& include : walled)
        EXPECT_FALSE(isAllowed(include)) << testing::PrintToString(include);
}

TEST(Architecture, NobodyReachesBackWithoutNeed) {
    for (const Include& include : kReachingBack) {
        const auto all = includesOf(include.file);
        EXPECT_EQ(std::count(all.begin(), all.end(), include), 1)
            << testing::PrintToString(include);
    }
}

TEST(Architecture, PublicHeadersIncludeOnlyPublicHeaders) {
    for (const Include& include : includesBelow("include")) {
        EXPECT_TRUE(include.angled || include.name.starts_with("wynconfig/"))
            << testing::PrintToString(include);
        // Whoever includes one needs no more than the compiler.
        EXPECT_TRUE(!include.angled || kindOf(include.name) == Foreign::Standard)
            << testing::PrintToString(include);
    }
}

/// The names of a form in a file.
std::set<std::string> namesIn(const std::string& path, const std::regex& name) {
    std::set<std::string> found;
    std::ifstream file(kRoot / path);
    for (std::string line; std::getline(file, line);) {
        for (std::sregex_iterator at(line.begin(), line.end(), name), end; at != end; ++at)
            found.insert((*at)[1]);
    }
    return found;
}

TEST(Architecture, EveryCallOfTheCInterfaceIsTestedFromC) {
    std::set<std::string> tested;
    for (const auto& entry : fs::directory_iterator(kRoot / "tests/c"))
        tested.merge(namesIn(fs::relative(entry.path(), kRoot), std::regex(R"(\b(wyn_\w+)\()")));
    std::set<std::string> calls;
    for (const std::string header : {"c.h", "c_qt.h"})
        calls.merge(namesIn("include/wynconfig/" + header,
                            std::regex(R"(^WYNCONFIG_API [^(]*\b(wyn_\w+)\()")));
    EXPECT_GT(calls.size(), 80U);
    for (const std::string& call : calls) EXPECT_TRUE(tested.contains(call)) << call;
}

// ---------------------------------------------------------------------------------------------
// The sample host, which knows the public headers and nothing else of the component.

struct HostRoom {
    std::string folder;  ///< below host/
    Names below;         ///< its other rooms that it builds on
    std::set<Foreign> foreign;
};

const std::set<Foreign> kAllOfQt{Foreign::Qt, Foreign::QtCore, Foreign::QtSql};

const std::vector<HostRoom> kHostRooms{
    {"texts", {}, {}},
    {"sending", {"texts"}, {}},
    {"sample", {"sending", "texts"}, {Foreign::QtCore}},
    {"window", {"sample", "sending", "texts"}, kAllOfQt},
    {"tour", {"window", "sample", "sending", "texts"}, kAllOfQt},
};

/// A header that stands beside main.cpp, open to all rooms.
const std::string kForAllOfTheHost = "installed_view.h";

bool isAllowedInHost(const Include& include) {
    static const std::regex publicHeader("wynconfig/[a-z_]+\\.h");
    if (std::regex_match(include.name, publicHeader))
        return !include.angled && fs::exists(kRoot / "include" / include.name);
    const std::string folder = include.file.substr(std::string("host/").size());
    const auto room = std::find_if(kHostRooms.begin(), kHostRooms.end(), [&](const HostRoom& each) {
        return folder.starts_with(each.folder + "/");
    });
    const bool isMain = folder == "main.cpp";
    if (room == kHostRooms.end() && !isMain && folder != kForAllOfTheHost) return false;
    if (include.angled) {
        const Foreign kind = kindOf(include.name);
        if (kind == Foreign::Standard) return true;
        return isMain ? kAllOfQt.contains(kind)
                      : room != kHostRooms.end() && room->foreign.contains(kind);
    }
    if (!fs::exists(kRoot / "host" / include.name)) return false;
    if (isMain || include.name == kForAllOfTheHost) return true;
    return room != kHostRooms.end() && (include.name.starts_with(room->folder + "/") ||
                                        startsWithAny(include.name, room->below));
}

TEST(Architecture, TheHostUsesThePublicHeadersAndKeepsItsRoomsApart) {
    const auto includes = includesBelow("host");
    EXPECT_GT(includes.size(), 200U);
    for (const Include& include : includes)
        EXPECT_TRUE(isAllowedInHost(include)) << testing::PrintToString(include);
}

TEST(Architecture, TheWallsOfTheHostStand) {
    const std::vector<Include> walled{
        {"host/window/main_window.cpp", "platform/files/file_system.h", false},
        {"host/window/main_window.cpp", "wynconfig/../../src/platform/text/text.h", false},
        {"host/window/main_window.cpp", "unistd.h", true},
        {"host/window/main_window.cpp", "tour/tour.h", false},
        {"host/window/main_window.cpp", "main_window.h", false},
        {"host/sample/sample_store.cpp", "window/main_window.h", false},
        {"host/sample/sample_store.cpp", "QWidget", true},
        {"host/sample/sample_store.cpp", "QSqlQuery", true},
        {"host/sending/sending.cpp", "QString", true},
        {"host/texts/phrase.cpp", "QString", true},
        {"host/texts/phrase.cpp", "sending/sending.h", false},
        {"host/sending/sending.cpp", "sample/sample_store.h", false},
        {"host/window/workplace.h", "database/connection.h", false},
        {"host/installed_view.h", "window/main_window.h", false},
        {"host/installed_view.h", "QWidget", true},
        {"host/elsewhere/new.cpp", "sending/sending.h", false},
    };
    for (const Include& include : walled)
        EXPECT_FALSE(isAllowedInHost(include)) << testing::PrintToString(include);
}

// ---------------------------------------------------------------------------------------------
// The administrator's program, which knows the public headers as well, and no window.

bool isAllowedInTools(const Include& include) {
    // Whether its error stream is a terminal only the system can tell.
    static const std::vector<Include> ofTheSystem{{"tools/progress.cpp", "unistd.h", true}};
    static const std::regex publicHeader("wynconfig/[a-z_]+\\.h");
    if (std::regex_match(include.name, publicHeader))
        return !include.angled && include.name != "wynconfig/qt_view.h" &&
               fs::exists(kRoot / "include" / include.name);
    if (!include.angled) return fs::exists(kRoot / "tools" / include.name);
    return kindOf(include.name) == Foreign::Standard || include.name == "CLI/CLI.hpp" ||
           include.name == "nlohmann/json.hpp" ||
           std::count(ofTheSystem.begin(), ofTheSystem.end(), include) > 0;
}

TEST(Architecture, TheToolsUseThePublicHeadersAndNoWindows) {
    const auto includes = includesBelow("tools");
    EXPECT_GT(includes.size(), 20U);
    for (const Include& include : includes)
        EXPECT_TRUE(isAllowedInTools(include)) << testing::PrintToString(include);
    const std::vector<Include> walled{
        {"tools/items.cpp", "platform/files/file_system.h", false},
        {"tools/items.cpp", "sending/sending.h", false},
        {"tools/items.cpp", "wynconfig/qt_view.h", false},
        {"tools/items.cpp", "QString", true},
        {"tools/items.cpp", "unistd.h", true},
    };
    for (const Include& include : walled)
        EXPECT_FALSE(isAllowedInTools(include)) << testing::PrintToString(include);
}

// ---------------------------------------------------------------------------------------------
// The files themselves.

/// Where sources lie.
const Names kFolders{"benchmarks", "examples", "fuzz", "host", "include", "src", "tests", "tools"};

TEST(Architecture, SourcesLieInTheFoldersThatThisTestKnows) {
    for (const auto& entry : fs::directory_iterator(kRoot)) {
        const std::string name = entry.path().filename().string();
        if (!entry.is_directory() || name == "build" || name.starts_with(".")) continue;
        const bool known = std::find(kFolders.begin(), kFolders.end(), name) != kFolders.end();
        EXPECT_EQ(!sourcesBelow(name).empty(), known) << name;
    }
}

TEST(Architecture, EveryHeaderIsIncludedOnce) {
    for (const std::string& folder : kFolders) {
        for (const std::string& file : sourcesBelow(folder)) {
            if (!file.ends_with(".h")) continue;
            std::ifstream text(kRoot / file);
            std::string line;
            while (std::getline(text, line) && line.starts_with("//")) {
            }
            EXPECT_EQ(line, "#pragma once") << file;
        }
    }
}

TEST(Architecture, NoFileGrowsBeyond900Lines) {
    for (const std::string& folder : kFolders) {
        for (const std::string& file : sourcesBelow(folder)) {
            std::ifstream text(kRoot / file);
            int lines = 0;
            for (std::string line; std::getline(text, line);) ++lines;
            EXPECT_LE(lines, 900) << file;
        }
    }
}

}  // namespace
