// Reads the source tree: who may include what.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = WYNCONFIG_SOURCE;

/// One `#include` line.
struct Include {
    std::string file;  ///< the including file, from the root
    std::string name;  ///< what is included
    bool angled;       ///< `<name>`, not `"name"`
};

bool isSource(const fs::path& path) {
    const std::string extension = path.extension().string();
    return extension == ".h" || extension == ".cpp";
}

std::vector<Include> includesOf(const fs::path& path) {
    static const std::regex line(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)re");
    std::vector<Include> found;
    std::ifstream file(path);
    std::smatch match;
    for (std::string text; std::getline(file, text);) {
        if (std::regex_match(text, match, line))
            found.push_back(
                {fs::relative(path, kRoot).generic_string(), match[2], match[1] == "<"});
    }
    return found;
}

std::vector<Include> includesBelow(const std::string& folder) {
    std::vector<Include> found;
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
        if (!entry.is_regular_file() || !isSource(entry.path())) continue;
        const auto all = includesOf(entry.path());
        found.insert(found.end(), all.begin(), all.end());
    }
    return found;
}

bool startsWithAny(const std::string& text, const std::vector<std::string>& heads) {
    for (const std::string& head : heads)
        if (text.starts_with(head)) return true;
    return false;
}

/// Qt's headers: `<QWidget>`, `<QtWidgets/...>`, `<qglobal.h>`.
bool isQt(const Include& include) {
    static const std::regex qt(R"((Qt?[A-Z].*|Qt.*/.*|q[a-z]+\.h))");
    return std::regex_match(include.name, qt);
}

/// Headers of the operating system and of the libraries behind the platform.
bool isOfThePlatform(const Include& include) {
    return startsWithAny(
        include.name, {"libxml/", "unicode/", "sys/", "linux/", "unistd.h", "fcntl.h", "dirent.h",
                       "langinfo.h", "windows.h", "dlfcn.h", "pthread.h", "pwd.h"});
}

bool isStandard(const Include& include) {
    static const std::regex standard(R"([a-z_]+|[a-z]+\.h)");
    return include.angled && std::regex_match(include.name, standard);
}

TEST(Architecture, TheSourceTreeIsThere) {
    EXPECT_GT(includesBelow("include").size(), 20U);
    EXPECT_GT(includesBelow("src").size(), 100U);
    EXPECT_TRUE(fs::exists(kRoot / "src/views/qt"));
}

TEST(Architecture, TheTestKnowsQtAndThePlatform) {
    for (const std::string name : {"QWidget", "QtWidgets/QWidget", "QtCore", "qglobal.h"})
        EXPECT_TRUE(isQt({"", name, true})) << name;
    for (const std::string name : {"queue", "wynconfig/qt_view.h", "platform/text/text.h"})
        EXPECT_FALSE(isQt({"", name, true})) << name;
    EXPECT_TRUE(isOfThePlatform({"", "sys/stat.h", true}));
    EXPECT_FALSE(isOfThePlatform({"", "system_error", true}));
    EXPECT_TRUE(isStandard({"", "string_view", true}));
    EXPECT_FALSE(isStandard({"", "gtest/gtest.h", true}));
}

TEST(Architecture, QtStaysInItsView) {
    for (const std::string folder : {"include", "src"}) {
        for (const Include& include : includesBelow(folder)) {
            if (include.file.starts_with("src/views/qt/")) continue;
            EXPECT_FALSE(isQt(include)) << include.file << " includes " << include.name;
        }
    }
}

TEST(Architecture, TheOperatingSystemAndItsLibrariesStayInThePlatform) {
    for (const std::string folder : {"include", "src"}) {
        for (const Include& include : includesBelow(folder)) {
            if (startsWithAny(include.file, {"src/platform/", "src/views/qt/"})) continue;
            EXPECT_FALSE(isOfThePlatform(include)) << include.file << " includes " << include.name;
            EXPECT_NE(include.name, "filesystem") << include.file;
        }
    }
}

TEST(Architecture, OutsideThePlatformAnglesAreForTheStandardLibrary) {
    for (const std::string folder : {"include", "src"}) {
        for (const Include& include : includesBelow(folder)) {
            if (startsWithAny(include.file, {"src/platform/", "src/views/qt/"})) continue;
            EXPECT_TRUE(!include.angled || isStandard(include))
                << include.file << " includes " << include.name;
        }
    }
}

TEST(Architecture, PublicHeadersIncludeOnlyPublicHeaders) {
    for (const Include& include : includesBelow("include")) {
        EXPECT_TRUE(include.angled || include.name.starts_with("wynconfig/"))
            << include.file << " includes " << include.name;
    }
}

/// The layers above the public headers, each with what its headers may build on.
const std::map<std::string, std::vector<std::string>> kBelow{
    {"platform", {}},
    {"store", {"platform/"}},
    {"services", {"store/", "platform/"}},
    {"dialogs", {"services/", "store/", "platform/"}},
    {"core", {"dialogs/", "services/", "store/", "platform/"}},
    {"views", {"platform/"}},
};

TEST(Architecture, EachFolderOfTheSourceIsALayer) {
    for (const auto& entry : fs::directory_iterator(kRoot / "src")) {
        if (entry.is_directory()) {
            EXPECT_TRUE(kBelow.contains(entry.path().filename().string())) << entry.path();
        }
    }
}

TEST(Architecture, TheHeadersOfALayerIncludeNothingAboveIt) {
    for (const auto& [layer, below] : kBelow) {
        for (const Include& include : includesBelow("src/" + layer)) {
            if (!include.file.ends_with(".h") || include.angled) continue;
            EXPECT_TRUE(startsWithAny(include.name, below) ||
                        startsWithAny(include.name, {"wynconfig/", layer + "/"}))
                << include.file << " includes " << include.name;
        }
    }
}

/// The source files of other layers may reach back up, where two parts call each other.
TEST(Architecture, ThePlatformAndTheStoreReachBackNowhere) {
    for (const std::string layer : {"platform", "store"}) {
        for (const Include& include : includesBelow("src/" + layer)) {
            if (include.angled) continue;
            EXPECT_TRUE(startsWithAny(include.name, kBelow.at(layer)) ||
                        startsWithAny(include.name, {"wynconfig/", layer + "/"}))
                << include.file << " includes " << include.name;
        }
    }
}

TEST(Architecture, TheHostUsesThePublicHeadersAlone) {
    for (const Include& include : includesBelow("host")) {
        const bool own = !include.angled && fs::exists(kRoot / "host" / include.name);
        EXPECT_TRUE(include.name.starts_with("wynconfig/") || isQt(include) ||
                    isStandard(include) || own)
            << include.file << " includes " << include.name;
    }
}

TEST(Architecture, EveryHeaderIsIncludedOnce) {
    for (const std::string folder : {"include", "src"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
            if (entry.path().extension() != ".h") continue;
            std::ifstream file(entry.path());
            std::string line;
            while (std::getline(file, line) && line.starts_with("//")) {
            }
            EXPECT_EQ(line, "#pragma once") << entry.path();
        }
    }
}

TEST(Architecture, NoFileGrowsBeyond900Lines) {
    for (const std::string folder : {"include", "src", "tests", "host"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
            if (!entry.is_regular_file() || !isSource(entry.path())) continue;
            std::ifstream file(entry.path());
            int lines = 0;
            for (std::string line; std::getline(file, line);) ++lines;
            EXPECT_LE(lines, 900) << entry.path();
        }
    }
}

}  // namespace
