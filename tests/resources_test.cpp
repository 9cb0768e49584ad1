// The texts of the component and the resource manager that reads them: no key is missing or left
// over, languages fall back to English, and texts read well where several make up a message.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

#ifndef WYNCONFIG_GENRB
#define WYNCONFIG_GENRB "genrb"
#endif

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string>& allKeys() {
    static const std::vector<std::string> keys = {
        "ADD_MORAM_CONFIG_LBL_CONFIGS",
        "ADD_MORAM_CONFIG_LBL_NAME",
        "ADD_MORAM_CONFIG_NONE",
        "ADD_MORAM_CONFIG_TITLE",
        "ADV_CONFIG_CHK_DISABLEPROGRAMLAUNCH",
        "ADV_CONFIG_LBL_PROGRAMLAUNCHDELAY",
        "ADV_CONFIG_LBL_WINDOWCLASS",
        "ADV_CONFIG_LBL_WINDOWTITLE",
        "ADV_CONFIG_LBL_WINDOWTITLECLASSDELAY",
        "ADV_CONFIG_MSG_ENTER_VALID_LAUNCH_DELAY",
        "ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY",
        "ADV_CONFIG_MSG_LAUNCH_DELAY",
        "ADV_CONFIG_MSG_TITLE_DELAY",
        "ADV_CONFIG_TITLE",
        "BUTTON_ADD",
        "BUTTON_ADVANCED",
        "BUTTON_APPLY",
        "BUTTON_BROWSE",
        "BUTTON_CANCEL",
        "BUTTON_COPY",
        "BUTTON_DELETE",
        "BUTTON_EDIT",
        "BUTTON_NEW",
        "BUTTON_OK",
        "BUTTON_RENAME",
        "BUTTON_TALLYVANE",
        "DIALOG_CAPTION",
        "DIALOG_LABEL",
        "GLOBAL_BROWSE_FOLDER",
        "GLOBAL_MOD_ERROR",
        "GLOBAL_MOD_MSG",
        "GLOBAL_MOD_PROCEDURE",
        "GLOBAL_MOD_TEXT",
        "GLOBAL_MOD_UNEXPECTED",
        "GLOBAL_SELECT_APP",
        "MORAM2_MSG_APP_PATH_EMPTY",
        "MORAM2_MSG_APP_PATH_INVALID",
        "MORAM2_MSG_CHECK_SESSION_CONFIG",
        "MORAM2_SEARCH_TYPE_CONTAINS",
        "MORAM2_SEARCH_TYPE_MATCHES",
        "MORAM2_SEARCH_TYPE_STARTSWITH",
        "MORAM_CONFIG_CHK_AUTORESIZE",
        "MORAM_CONFIG_FRA_LAUNCH",
        "MORAM_CONFIG_FRA_ORIENTATION",
        "MORAM_CONFIG_LBL_AVAILABLEFORMATS",
        "MORAM_CONFIG_LBL_CMDLINE",
        "MORAM_CONFIG_LBL_DISPLAYNAME",
        "MORAM_CONFIG_LBL_PATH",
        "MORAM_CONFIG_LBL_SELECTEDFORMATS",
        "MORAM_CONFIG_MSG_ARE_YOU_SURE",
        "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS",
        "MORAM_CONFIG_MSG_DELETE_CONFIG",
        "MORAM_CONFIG_MSG_DISPLAY_NAME",
        "MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME",
        "MORAM_CONFIG_MSG_ENTER_NEW_NAME",
        "MORAM_CONFIG_MSG_ERROR",
        "MORAM_CONFIG_MSG_FORMAT_NAME",
        "MORAM_CONFIG_MSG_INVALID_CHARS",
        "MORAM_CONFIG_MSG_INVALID_CONFIG",
        "MORAM_CONFIG_MSG_LAST_PART_FORMAT",
        "MORAM_CONFIG_MSG_NAME_EXISTS",
        "MORAM_CONFIG_MSG_PART_FORMAT",
        "MORAM_CONFIG_MSG_REENTER_NAME",
        "MORAM_CONFIG_MSG_SELECT_FORMAT",
        "MORAM_CONFIG_OPT_BOTTOM",
        "MORAM_CONFIG_OPT_LEFT",
        "MORAM_CONFIG_OPT_REVERSE",
        "MORAM_CONFIG_OPT_RIGHT",
        "MORAM_CONFIG_OPT_TOP",
        "MORAM_CONFIG_TAB_APP_LAUNCH",
        "MORAM_CONFIG_TAB_PART_FORMAT",
        "MORAM_CONFIG_TITLE",
        "MORAM_MAINT_LBL_SELECTSESSION",
        "MORAM_MAINT_MSG_DELETE_CONFIG",
        "MORAM_MAINT_TITLE",
        "PART_FORMAT_CHK_FORMATDESC",
        "PART_FORMAT_CHK_FORMATPART",
        "PART_FORMAT_CHK_FORMATQTY",
        "PART_FORMAT_FRA_DESC",
        "PART_FORMAT_FRA_FORMAT",
        "PART_FORMAT_FRA_PART",
        "PART_FORMAT_FRA_QTY",
        "PART_FORMAT_LBL_ALIGNMENT",
        "PART_FORMAT_LBL_FIELDLENGTH",
        "PART_FORMAT_LBL_FORMATNAME",
        "PART_FORMAT_LBL_HEADER",
        "PART_FORMAT_LBL_MAXRECORDS",
        "PART_FORMAT_LBL_PADCHAR",
        "PART_FORMAT_LBL_RECORD",
        "PART_FORMAT_LBL_SEPARATOR",
        "PART_FORMAT_LBL_TRAILER",
        "PART_FORMAT_MSG_CONFIG_NAME",
        "PART_FORMAT_MSG_DESC_FIELD_LEN",
        "PART_FORMAT_MSG_DESC_PAD_CHAR",
        "PART_FORMAT_MSG_NUM_MAX_RECORDS",
        "PART_FORMAT_MSG_PART_FIELD_LEN",
        "PART_FORMAT_MSG_PART_PAD_CHAR",
        "PART_FORMAT_MSG_QTY_FIELD_LEN",
        "PART_FORMAT_MSG_QTY_PAD_CHAR",
        "PART_FORMAT_MSG_VIN_FIELD_LEN",
        "PART_FORMAT_MSG_VIN_PAD_CHAR",
        "PART_FORMAT_OPT_LEFT",
        "PART_FORMAT_OPT_RIGHT",
        "PART_FORMAT_TITLE",
        "SESSION_MANAGER_TITLE",
        "TVW_CONFIG_CHK_WRITE_FILE_ONLY",
        "TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO",
        "TVW_CONFIG_LBL_FILE_FOLDER",
        "TVW_CONFIG_LBL_FILE_NAME",
        "TVW_CONFIG_RDO_APPEND",
        "TVW_CONFIG_RDO_OVER_WRITE",
        "TVW_CONFIG_TITLE",
        "TVW_ERR_FILE_NAME_INVALID",
        "TVW_ERR_FOLDER_INVALID",
        "TVW_ERR_TITLE",
    };
    return keys;
}

/// A folder that goes when the test ends.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (fs::temp_directory_path() / "wynconfig-texts-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), pattern);
        }
        m_path = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const fs::path& path() const { return m_path; }

  private:
    fs::path m_path;
};

void writeFile(const fs::path& file, const std::string& content) {
    std::ofstream out(file, std::ios::binary);
    out << content;
    out.close();
    ASSERT_TRUE(out) << file;
}

void copyEnglish(const fs::path& folder) {
    fs::copy_file(fs::path(WYNCONFIG_RESOURCES) / "en.res", folder / "en.res");
}

/// Compiles a bundle of the given entries into `folder`.
void compileBundle(const fs::path& folder, const std::string& name, const std::string& entries) {
    writeFile(folder / (name + ".txt"), name + " {\n" + entries + "\n}\n");
    const std::string command = std::string("\"") + WYNCONFIG_GENRB +
                                "\" --quiet --encoding UTF-8 --sourcedir \"" + folder.string() +
                                "\" --destdir \"" + folder.string() + "\" " + name + ".txt";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

std::string descriptionOfFailure(ResourceManager& texts, const std::string& key) {
    try {
        texts.GetString(key);
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::NoSuchKey);
        return error.description();
    }
    ADD_FAILURE() << key << " has a text";
    return {};
}

class ResourcesTest : public testing::Test {
  protected:
    std::string text(const std::string& key) const { return m_english->GetString(key); }

    std::shared_ptr<ResourceManager> m_english =
        makeBundleResourceManager(WYNCONFIG_RESOURCES, "en");
};

TEST_F(ResourcesTest, everyKeyHasAText) {
    for (const std::string& key : allKeys()) {
        EXPECT_NO_THROW(EXPECT_FALSE(text(key).empty()) << key) << key;
    }
}

TEST_F(ResourcesTest, theSourceHoldsTheseKeysAlone) {
    std::ifstream source(WYNCONFIG_RESOURCE_SOURCE);
    ASSERT_TRUE(source) << WYNCONFIG_RESOURCE_SOURCE;
    const std::regex entry(R"(^\s+([A-Za-z0-9_]+)\s*\{.*)");
    std::multiset<std::string> inSource;
    for (std::string line; std::getline(source, line);) {
        std::smatch match;
        if (std::regex_match(line, match, entry)) {
            inSource.insert(match[1]);
        }
    }
    EXPECT_EQ(inSource, std::multiset<std::string>(allKeys().begin(), allKeys().end()));
}

TEST_F(ResourcesTest, textsHaveNoBlanksAroundThemAndNoAcceleratorMarks) {
    for (const std::string& key : allKeys()) {
        const std::string value = text(key);
        EXPECT_EQ(value.find_first_not_of(" \t\r\n"), 0U) << key;
        EXPECT_EQ(value.find_last_not_of(" \t\r\n"), value.size() - 1) << key;
        EXPECT_EQ(value.find('&'), std::string::npos) << key;
        EXPECT_EQ(value.find("  "), std::string::npos) << key;
        EXPECT_EQ(value.find_first_of("\r\n"), std::string::npos) << key;
    }
}

TEST_F(ResourcesTest, anUnknownKeyIsNamedInTheFailure) {
    const std::string description = descriptionOfFailure(*m_english, "NO_SUCH_TEXT");
    EXPECT_NE(description.find("NO_SUCH_TEXT"), std::string::npos) << description;
    descriptionOfFailure(*m_english, "");
    descriptionOfFailure(*m_english, "button_ok");
}

TEST_F(ResourcesTest, theFontIsTheOneGiven) {
    const Font font{"DejaVu Sans", 11.5, true, false};
    const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES, "en", font);
    EXPECT_EQ(texts->GetFont(0), font);
    EXPECT_EQ(texts->GetFont(4711), font);
    EXPECT_EQ(m_english->GetFont(0), Font{});
}

TEST_F(ResourcesTest, aFolderWithoutABundleRaises) {
    const TemporaryFolder folder;
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "en"), Error);
    EXPECT_THROW(makeBundleResourceManager((folder.path() / "none").string(), "en"), Error);
    EXPECT_THROW(makeBundleResourceManager("", "en"), Error);
    fs::create_directory(folder.path() / "en.res");
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "en"), Error);
}

TEST_F(ResourcesTest, aBundleThatComesLaterIsFound) {
    const TemporaryFolder folder;
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "en"), Error);
    copyEnglish(folder.path());
    EXPECT_EQ(makeBundleResourceManager(folder.path().string(), "en")->GetString("BUTTON_OK"),
              "OK");
}

TEST_F(ResourcesTest, aFileThatIsNoBundleRaises) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "en.res", "BUTTON_OK=OK\n");
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "en"), Error);
    writeFile(folder.path() / "fr.res", "");
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "fr"), Error);
}

TEST_F(ResourcesTest, theFolderMayBeSpeltInAnyWay) {
    const TemporaryFolder parent;
    const fs::path folder = parent.path() / "texts v1.2";
    fs::create_directory(folder);
    copyEnglish(folder);
    for (const std::string& spelling :
         {folder.string(), folder.string() + "/", folder.string() + "//",
          (folder / "..").string() + "/texts v1.2", fs::relative(folder).string()}) {
        EXPECT_EQ(makeBundleResourceManager(spelling, "en")->GetString("BUTTON_OK"), "OK")
            << spelling;
    }
}

TEST_F(ResourcesTest, anUnknownLanguageFallsBackToEnglish) {
    const std::string tooLong(1000, 'x');
    for (const std::string& locale : {std::string("xx"), std::string("xx-YY"), std::string("C"),
                                      std::string("../en"), std::string("no language"), tooLong}) {
        const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES, locale);
        EXPECT_EQ(texts->GetString("BUTTON_CANCEL"), "Cancel") << locale;
    }
}

TEST_F(ResourcesTest, theLanguageOfTheUserHasEveryText) {
    const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES);
    for (const std::string& key : allKeys()) {
        EXPECT_NO_THROW(EXPECT_FALSE(texts->GetString(key).empty()) << key) << key;
    }
}

TEST_F(ResourcesTest, aLanguageLiesOverEnglishKeyByKey) {
    const TemporaryFolder folder;
    copyEnglish(folder.path());
    compileBundle(folder.path(), "de",
                  "BUTTON_APPLY { \"Übernehmen\" }\nBUTTON_COPY { \"Kopieren\" }\n"
                  "BUTTON_NEW { \"\" }\nNOT_A_TEXT { child { \"x\" } }");
    compileBundle(folder.path(), "de_AT", "BUTTON_COPY { \"Kopie 🧾\" }");

    for (const char* locale : {"de", "de-DE", "de_DE", "DE", "de_DE.UTF-8", "de-DE-u-co-phonebk"}) {
        const auto texts = makeBundleResourceManager(folder.path().string(), locale);
        EXPECT_EQ(texts->GetString("BUTTON_APPLY"), "Übernehmen") << locale;
        EXPECT_EQ(texts->GetString("BUTTON_COPY"), "Kopieren") << locale;
        EXPECT_EQ(texts->GetString("BUTTON_NEW"), "") << locale;
        for (const std::string& key : allKeys()) {
            if (key != "BUTTON_APPLY" && key != "BUTTON_COPY" && key != "BUTTON_NEW") {
                EXPECT_EQ(texts->GetString(key), text(key)) << locale;
            }
        }
        descriptionOfFailure(*texts, "NOT_A_TEXT");
    }
    const auto austrian = makeBundleResourceManager(folder.path().string(), "de-AT");
    EXPECT_EQ(austrian->GetString("BUTTON_COPY"), "Kopie 🧾");
    EXPECT_EQ(austrian->GetString("BUTTON_APPLY"), "Übernehmen");
    const auto english = makeBundleResourceManager(folder.path().string(), "en-GB");
    EXPECT_EQ(english->GetString("BUTTON_APPLY"), "Apply");
}

TEST_F(ResourcesTest, aLanguageServesWithoutEnglish) {
    const TemporaryFolder folder;
    compileBundle(folder.path(), "de", "BUTTON_OK { \"Gut\" }");
    const auto texts = makeBundleResourceManager(folder.path().string(), "de");
    EXPECT_EQ(texts->GetString("BUTTON_OK"), "Gut");
    descriptionOfFailure(*texts, "BUTTON_CANCEL");
    EXPECT_THROW(makeBundleResourceManager(folder.path().string(), "fr"), Error);
}

TEST_F(ResourcesTest, aMessageOfSeveralTextsIsMadeOfWholeSentences) {
    const std::string exists = text("MORAM_CONFIG_MSG_NAME_EXISTS");
    const std::string reenter = text("MORAM_CONFIG_MSG_REENTER_NAME");
    const std::string check = text("MORAM2_MSG_CHECK_SESSION_CONFIG") + ".";
    // Each with the number of sentences that it has.
    const std::vector<std::pair<std::string, int>> messages = {
        {exists + " SHOP. " + reenter, 2},
        {exists + ": SHOP. " + reenter, 2},
        {"SHOP: " + exists + ". " + reenter, 2},
        {check, 1},
    };
    for (const auto& [message, sentences] : messages) {
        EXPECT_EQ(std::count(message.begin(), message.end(), '.'), sentences) << message;
        EXPECT_EQ(message.back(), '.') << message;
        EXPECT_FALSE(std::regex_search(message, std::regex("[.:!?] ?[.:!?]"))) << message;
        EXPECT_FALSE(std::regex_search(message, std::regex("\\.[^ ]"))) << message;
    }
}

TEST_F(ResourcesTest, aTextBeforeANameOrAListEndsSoThatItCanFollow) {
    for (const char* key : {"MORAM_CONFIG_MSG_NAME_EXISTS", "MORAM_CONFIG_MSG_LAST_PART_FORMAT",
                            "MORAM2_MSG_CHECK_SESSION_CONFIG", "GLOBAL_MOD_ERROR"}) {
        EXPECT_EQ(std::string(".:!?,;").find(text(key).back()), std::string::npos) << key;
    }
    for (const char* key :
         {"MORAM_CONFIG_MSG_INVALID_CHARS", "GLOBAL_MOD_TEXT", "GLOBAL_MOD_PROCEDURE"}) {
        const std::string value = text(key);
        EXPECT_EQ(value.find(':'), value.size() - 1) << key;
    }
}

TEST_F(ResourcesTest, aMessageThatStandsAloneEndsLikeASentence) {
    const std::set<std::string> continued = {
        "MORAM_CONFIG_MSG_NAME_EXISTS", "MORAM_CONFIG_MSG_LAST_PART_FORMAT",
        "MORAM_CONFIG_MSG_INVALID_CHARS", "MORAM2_MSG_CHECK_SESSION_CONFIG"};
    const std::set<std::string> titles = {
        "MORAM_CONFIG_MSG_DISPLAY_NAME", "MORAM_CONFIG_MSG_PART_FORMAT",
        "MORAM_CONFIG_MSG_FORMAT_NAME",  "MORAM_CONFIG_MSG_INVALID_CONFIG",
        "MORAM_CONFIG_MSG_ERROR",        "MORAM_CONFIG_MSG_ARE_YOU_SURE",
        "MORAM2_MSG_APP_PATH_EMPTY",     "MORAM2_MSG_APP_PATH_INVALID",
        "ADV_CONFIG_MSG_TITLE_DELAY",    "ADV_CONFIG_MSG_LAUNCH_DELAY"};
    const std::regex message("GLOBAL_MOD_MSG|.*_MSG_.*|TVW_ERR_.*_INVALID|.*_WITH_WFO");
    for (const std::string& key : allKeys()) {
        const char last = text(key).back();
        if (std::regex_match(key, message) && !titles.contains(key)) {
            if (!continued.contains(key)) {
                EXPECT_TRUE(last == '.' || last == '?') << key;
            }
        } else {
            EXPECT_NE(last, '.') << key;
        }
    }
}

}  // namespace
}  // namespace wynconfig
