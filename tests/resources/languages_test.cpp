// The texts of every language: complete, written by the same rules as the English ones, in their
// own letters, and readable where several make up a message.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/text.h"
#include "support/languages.h"
#include "support/text_keys.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {
namespace {

/// Texts that end so that a name or a list can follow.
const std::set<std::string> kContinued = {
    "MORAM_CONFIG_MSG_NAME_EXISTS", "MORAM_CONFIG_MSG_LAST_PART_FORMAT",
    "MORAM_CONFIG_MSG_INVALID_CHARS", "MORAM2_MSG_CHECK_SESSION_CONFIG"};

/// Titles of boxes, among keys that look like those of messages.
const std::set<std::string> kTitles = {
    "MORAM_CONFIG_MSG_DISPLAY_NAME", "MORAM_CONFIG_MSG_PART_FORMAT",
    "MORAM_CONFIG_MSG_FORMAT_NAME",  "MORAM_CONFIG_MSG_INVALID_CONFIG",
    "MORAM_CONFIG_MSG_ERROR",        "MORAM_CONFIG_MSG_ARE_YOU_SURE",
    "MORAM2_MSG_APP_PATH_EMPTY",     "MORAM2_MSG_APP_PATH_INVALID",
    "ADV_CONFIG_MSG_TITLE_DELAY",    "ADV_CONFIG_MSG_LAUNCH_DELAY"};

bool isMessage(const std::string& key) {
    static const std::regex message(
        "GLOBAL_MOD_MSG|.*_MSG_.*|TVW_ERR_.*_INVALID|.*_WITH_WFO|"
        "VIEW_NO_MATCH|VIEW_EMPTY.*");
    return std::regex_match(key, message) && !kTitles.contains(key);
}

/// A text with the punctuation of other scripts replaced by the like of ASCII.
std::string withPlainMarks(std::string text) {
    static const std::vector<std::pair<std::string, std::string>> marks = {
        {"。", ". "}, {"？", "? "}, {"：", ":"}, {"，", ","},
        {"、", ","},  {"؟", "?"},   {"،", ","},  {"\u00A0", " "}};
    for (const auto& [mark, plain] : marks) {
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
            text.replace(at, mark.size(), plain);
    }
    if (text.ends_with(' ')) text.pop_back();
    return text;
}

std::multiset<std::string> tokensOf(const std::string& text) {
    static const std::regex token("<[^>]*>");
    return {std::sregex_token_iterator(text.begin(), text.end(), token),
            std::sregex_token_iterator()};
}

/// A text without the marks that say in which direction what is beside them runs.
std::string withoutDirections(std::string text) {
    for (const std::string mark : {"\u200E", "\u200F"}) {
        for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark))
            text.erase(at, mark.size());
    }
    return text;
}

/// Which letters a text is written in; a text can have several.
struct Scripts {
    bool latin = false;
    bool arabic = false;
    bool kana = false;
    bool han = false;
};

Scripts scriptsOf(const std::string& text) {
    Scripts found;
    for (std::size_t at = 0; at < text.size();) {
        const Character each = characterAt(text, at);
        const auto within = [&](std::int32_t first, std::int32_t last) {
            return each.code >= first && each.code <= last;
        };
        found.latin |= within('A', 'Z') || within('a', 'z') || within(0xC0, 0x24F);
        found.arabic |= within(0x0620, 0x064A);
        found.kana |= within(0x3041, 0x30FF);
        found.han |= within(0x4E00, 0x9FFF);
        at += each.length;
    }
    return found;
}

class EveryLanguage : public testing::TestWithParam<std::string> {
  protected:
    std::string text(const std::string& key) const { return m_texts->GetString(key); }
    std::string plain(const std::string& key) const { return plainCaption(text(key)); }
    std::string english(const std::string& key) const { return m_english->GetString(key); }
    static bool isPseudo() { return GetParam() == kPseudoLanguage; }

    /// The file of the texts.
    static std::string source() {
        return std::string(isPseudo() ? WYNCONFIG_PSEUDO_RESOURCES : WYNCONFIG_RESOURCE_SOURCE) +
               "/" + GetParam() + ".xlf";
    }

  private:
    std::shared_ptr<ResourceManager> m_texts = textsIn(GetParam());
    std::shared_ptr<ResourceManager> m_english = textsIn("en");
};

/// What the pseudo-language can't keep, as it leaves the marked letters alone.
class ShippedLanguage : public EveryLanguage {};

TEST_P(EveryLanguage, HasTheKeysOfTheComponentAndNoOthers) {
    std::ifstream file(source());
    ASSERT_TRUE(file) << source();
    const std::regex entry(R"re(\s*<trans-unit id="([^"]+)">\s*)re");
    std::multiset<std::string> keys;
    for (std::string line; std::getline(file, line);) {
        std::smatch match;
        if (std::regex_match(line, match, entry)) keys.insert(match[1]);
    }
    std::multiset<std::string> known(allKeys().begin(), allKeys().end());
    known.insert(helpKeys().begin(), helpKeys().end());
    EXPECT_EQ(keys, known);
}

TEST_P(EveryLanguage, HasNoEmptyTextAndNoBlanksToSpare) {
    const std::set<std::string> blanks = {" ", "\t", "\r", "\n", "\u00A0", "\u3000"};
    for (const std::string& key : allKeys()) {
        const std::string value = text(key);
        ASSERT_FALSE(value.empty()) << key;
        EXPECT_TRUE(isUtf8(value)) << key;
        for (const std::string& blank : blanks) {
            EXPECT_FALSE(value.starts_with(blank)) << key;
            // A colon always follows, and the French set a blank before it.
            if (GetParam() == "fr" && key == "GLOBAL_MOD_ERROR" && blank == "\u00A0") continue;
            EXPECT_FALSE(value.ends_with(blank)) << key;
            EXPECT_FALSE(plain(key).ends_with(blank)) << key;
            EXPECT_EQ(value.find(blank + blank), std::string::npos) << key;
        }
        EXPECT_EQ(value.find_first_of("\t\r\n"), std::string::npos) << key;
    }
}

TEST_P(EveryLanguage, KeepsWhatStandsInAngleBrackets) {
    for (const std::string& key : allKeys())
        EXPECT_EQ(tokensOf(plain(key)), tokensOf(plainCaption(english(key)))) << key;
}

TEST_P(EveryLanguage, KeepsATagInItsOrderAmongLettersFromRightToLeft) {
    const bool rightToLeft = bundleLanguage(WYNCONFIG_RESOURCES, GetParam()).rightToLeft;
    const std::regex kept("\u200E<[^>]*>\u200E");
    for (const std::string& key : allKeys()) {
        const std::string value = plain(key);
        if (rightToLeft) {
            EXPECT_EQ(std::regex_replace(value, kept, "").find('<'), std::string::npos) << key;
        } else {
            EXPECT_EQ(withoutDirections(value), value) << key;
        }
    }
}

TEST_P(EveryLanguage, EndsWithAColonWhereEnglishDoes) {
    for (const std::string& key : allKeys()) {
        const std::string value = withPlainMarks(text(key));
        EXPECT_EQ(value.ends_with(':'), english(key).ends_with(':')) << key;
        if (value.ends_with(':')) {
            EXPECT_EQ(value.find(':'), value.size() - 1) << key;
        }
    }
}

TEST_P(EveryLanguage, EndsAMessageThatStandsAloneLikeASentence) {
    for (const std::string& key : allKeys()) {
        const char last = withPlainMarks(text(key)).back();
        if (!isMessage(key)) {
            EXPECT_NE(last, '.') << key;
        } else if (!kContinued.contains(key)) {
            EXPECT_TRUE(last == '.' || last == '?') << key;
        }
    }
}

TEST_P(EveryLanguage, KeepsThePlacesOfNamesInWhatViewsSay) {
    const auto places = [](const std::string& value) {
        std::set<std::string> found;
        for (const char* each : {"%1", "%2"}) {
            if (value.find(each) != std::string::npos) found.insert(each);
        }
        return found;
    };
    for (const std::string& key : allKeys())
        EXPECT_EQ(places(text(key)), places(english(key))) << key;
}

TEST_P(EveryLanguage, EndsATextBeforeANameSoThatItCanFollow) {
    for (const char* key : {"MORAM_CONFIG_MSG_NAME_EXISTS", "MORAM_CONFIG_MSG_LAST_PART_FORMAT",
                            "MORAM2_MSG_CHECK_SESSION_CONFIG", "GLOBAL_MOD_ERROR"}) {
        const std::string value = withPlainMarks(text(key));
        EXPECT_EQ(std::string(".:!?,;").find(value.back()), std::string::npos) << key;
    }
}

TEST_P(EveryLanguage, MakesAMessageOfSeveralTextsOfWholeSentences) {
    const std::string exists = text("MORAM_CONFIG_MSG_NAME_EXISTS");
    const std::string reenter = text("MORAM_CONFIG_MSG_REENTER_NAME");
    // Each with the number of sentences that it has.
    const std::vector<std::pair<std::string, int>> messages = {
        {exists + " SHOP. " + reenter, 2},
        {exists + ": SHOP. " + reenter, 2},
        {"SHOP: " + exists + ". " + reenter, 2},
        {text("MORAM2_MSG_CHECK_SESSION_CONFIG") + ".", 1},
    };
    for (const auto& [written, sentences] : messages) {
        const std::string message = withPlainMarks(written);
        EXPECT_EQ(std::count(message.begin(), message.end(), '.'), sentences) << message;
        EXPECT_EQ(message.back(), '.') << message;
        EXPECT_FALSE(std::regex_search(message, std::regex("[.:!?] ?[.:!?]"))) << message;
        EXPECT_FALSE(std::regex_search(message, std::regex("\\.[^ ]"))) << message;
    }
}

TEST_P(ShippedLanguage, NamesCaptionsInMessagesAsTheyAreSeen) {
    const std::vector<std::pair<std::string, std::string>> named = {
        {"MORAM2_MSG_CHECK_SESSION_CONFIG", "ADV_CONFIG_CHK_DISABLEPROGRAMLAUNCH"},
        {"MORAM2_MSG_CHECK_SESSION_CONFIG", "BUTTON_ADVANCED"},
        {"TVW_ERR_FOLDER_INVALID", "BUTTON_BROWSE"},
        {"TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO", "TVW_CONFIG_CHK_WRITE_FILE_ONLY"}};
    for (const auto& [message, caption] : named) {
        EXPECT_NE(text(message).find(plain(caption)), std::string::npos)
            << message << " " << plain(caption);
    }
}

TEST_P(ShippedLanguage, HasTheSameWordsForTheLabelAndTheTitleOfABox) {
    const std::vector<std::pair<std::string, std::string>> same = {
        {"MORAM_CONFIG_LBL_DISPLAYNAME", "MORAM_CONFIG_MSG_DISPLAY_NAME"},
        {"ADV_CONFIG_LBL_PROGRAMLAUNCHDELAY", "ADV_CONFIG_MSG_LAUNCH_DELAY"},
        {"ADV_CONFIG_LBL_WINDOWTITLECLASSDELAY", "ADV_CONFIG_MSG_TITLE_DELAY"},
        {"MORAM_CONFIG_TAB_PART_FORMAT", "PART_FORMAT_TITLE"},
        {"BUTTON_RENAME", "DIALOG_CAPTION"}};
    for (const auto& [label, title] : same) EXPECT_EQ(plain(label), plain(title)) << label;
}

TEST_P(EveryLanguage, IsNotMuchLongerThanEnglish) {
    for (const std::string& key : allKeys()) {
        const std::size_t length = charCount(plain(key));
        const std::size_t there = charCount(plainCaption(english(key)));
        // Short texts grow most.
        EXPECT_LE(length, there + there / 2 + 12) << key << ": " << text(key);
    }
}

TEST_P(EveryLanguage, IsWrittenInItsOwnLetters) {
    const std::string tag = GetParam();
    const bool latin = tag != "ar" && tag != "ja" && tag != "zh-Hans";
    for (const std::string& key : allKeys()) {
        const std::string value = plain(key);
        const Scripts scripts = scriptsOf(value);
        const bool same = withoutDirections(value) == plainCaption(english(key));
        SCOPED_TRACE(key + ": " + value);
        if (latin) {
            EXPECT_TRUE(scripts.latin);
        } else if (!same) {
            EXPECT_TRUE(tag == "ar" ? scripts.arabic : scripts.han || scripts.kana);
        }
        EXPECT_FALSE(scripts.arabic && tag != "ar");
        EXPECT_FALSE(scripts.kana && tag != "ja");
        EXPECT_FALSE(scripts.han && tag != "ja" && tag != "zh-Hans");
    }
}

TEST_P(EveryLanguage, IsTranslatedThroughout) {
    if (GetParam() == "en") return;
    // What is written alike in several languages: a name, and what every language calls so.
    std::set<std::string> alike = {"BUTTON_TALLYVANE", "PART_FORMAT_FRA_PART",
                                   "PART_FORMAT_FRA_QTY", "PART_FORMAT_FRA_DESC"};
    if (text("BUTTON_OK") == "OK") alike.insert("BUTTON_OK");
    if (GetParam() == "it") alike.insert("PART_FORMAT_LBL_RECORD");
    if (isPseudo()) alike.erase("BUTTON_TALLYVANE");
    for (const std::string& key : allKeys()) {
        EXPECT_EQ(withoutDirections(plain(key)) == plainCaption(english(key)), alike.contains(key))
            << key << ": " << text(key);
    }
}

TEST_P(EveryLanguage, HasNoNameForTheRowThatStandsForNone) {
    const std::string none = text("ADD_MORAM_CONFIG_NONE");
    EXPECT_EQ(none.find_first_of("<>&"), std::string::npos);
    // Names are in upper case. Letters without cases leave nothing to tell the row by.
    if (scriptsOf(none).latin) {
        EXPECT_NE(UCase(none), none);
    }
}

/// The numbers of a text.
std::multiset<std::string> numbersOf(const std::string& text) {
    static const std::regex number("[0-9]+");
    return {std::sregex_token_iterator(text.begin(), text.end(), number),
            std::sregex_token_iterator()};
}

TEST_P(EveryLanguage, HelpsInWholeSentencesThatMarkNoKey) {
    for (const std::string& key : helpKeys()) {
        const std::string value = withPlainMarks(withoutDirections(text(key)));
        SCOPED_TRACE(key + ": " + value);
        EXPECT_TRUE(isUtf8(value));
        EXPECT_EQ(value.find('&'), std::string::npos);
        EXPECT_EQ(value.find("  "), std::string::npos);
        EXPECT_EQ(value.find_first_of("\t\r\n"), std::string::npos);
        // What is typed ends with no period.
        const bool hasExample = english(key).find("Example: ") != std::string::npos;
        EXPECT_NE(value.ends_with('.'), hasExample);
        if (hasExample) {
            EXPECT_NE(value.find(':'), std::string::npos);
        }
    }
}

TEST_P(EveryLanguage, HelpsWithTheSameTokensAndNumbers) {
    const bool rightToLeft = bundleLanguage(WYNCONFIG_RESOURCES, GetParam()).rightToLeft;
    const std::regex kept("\u200E<[^>]*>\u200E");
    for (const std::string& key : helpKeys()) {
        EXPECT_EQ(tokensOf(text(key)), tokensOf(english(key))) << key;
        // What is counted in letters in one language may be a digit in another.
        const std::multiset<std::string> numbers = numbersOf(english(key));
        const std::multiset<std::string> here = numbersOf(text(key));
        EXPECT_TRUE(std::includes(here.begin(), here.end(), numbers.begin(), numbers.end()))
            << key << ": " << text(key);
        if (rightToLeft) {
            EXPECT_EQ(std::regex_replace(text(key), kept, "").find('<'), std::string::npos) << key;
        }
    }
}

TEST_P(EveryLanguage, HelpsInItsOwnWordsAndNotAtLength) {
    for (const std::string& key : helpKeys()) {
        SCOPED_TRACE(key + ": " + text(key));
        EXPECT_EQ(text(key) == english(key), GetParam() == "en");
        EXPECT_LE(charCount(text(key)), charCount(english(key)) * 3 / 2 + 12);
        EXPECT_LE(charCount(english(key)), 400U);
        if (GetParam() == "ar" || GetParam() == "ja" || GetParam() == "zh-Hans") {
            const Scripts scripts = scriptsOf(text(key));
            EXPECT_TRUE(scripts.arabic || scripts.han || scripts.kana);
        }
    }
}

TEST_P(ShippedLanguage, TellsTheUnitOfEachNumber) {
    struct Units {
        std::string characters;
        std::string seconds;
    };
    static const std::map<std::string, Units> units = {
        {"ar", {"الأحرف", "الثواني"}},     {"de", {"Zeichen", "Sekunden"}},
        {"en", {"characters", "seconds"}}, {"es", {"caracteres", "segundos"}},
        {"fr", {"caractères", "seconde"}}, {"it", {"caratteri", "secondi"}},
        {"ja", {"文字数", "秒"}},          {"pt", {"caracteres", "segundos"}},
        {"zh-Hans", {"字符", "秒"}}};
    const auto& [characters, seconds] = units.at(GetParam());
    EXPECT_NE(text("HELP_FIELD_LENGTH").find(characters), std::string::npos);
    for (const char* key : {"HELP_LAUNCH_DELAY", "HELP_WINDOW_DELAY"})
        EXPECT_NE(text(key).find(seconds), std::string::npos) << key;
}

TEST_P(ShippedLanguage, NamesCaptionsInHelpAsTheyAreSeen) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> named = {
        {"HELP_SESSION",
         {"MORAM_CONFIG_TAB_PART_FORMAT", "BUTTON_NEW", "BUTTON_TALLYVANE", "BUTTON_ADVANCED"}},
        {"HELP_TALLYVANE", {"MORAM_CONFIG_TAB_PART_FORMAT", "BUTTON_OK"}},
        {"HELP_ADVANCED", {"BUTTON_OK"}},
        {"HELP_SESSIONS", {"BUTTON_OK"}},
        {"HELP_MANAGER", {"BUTTON_OK"}}};
    for (const auto& [help, captions] : named) {
        for (const std::string& caption : captions) {
            // A letter in brackets behind the words only marks the key.
            const std::string seen = std::regex_replace(withoutDirections(plain(caption)),
                                                        std::regex("\\([^)]*\\)$"), "");
            EXPECT_NE(withoutDirections(text(help)).find(seen), std::string::npos)
                << help << " " << seen;
        }
    }
}

std::string nameOf(const testing::TestParamInfo<std::string>& language) {
    std::string name = language.param;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
}

INSTANTIATE_TEST_SUITE_P(Texts, EveryLanguage, testing::ValuesIn(allLanguages()), nameOf);
INSTANTIATE_TEST_SUITE_P(Texts, ShippedLanguage, testing::ValuesIn(shippedLanguages()), nameOf);

TEST(PseudoLanguage, IsAboutFortyPercentLonger) {
    const auto pseudo = textsIn(kPseudoLanguage);
    const auto english = textsIn("en");
    double longer = 0;
    double usual = 0;
    for (const std::string& key : allKeys()) {
        longer += static_cast<double>(charCount(pseudo->GetString(key)));
        usual += static_cast<double>(charCount(english->GetString(key)));
    }
    EXPECT_GE(longer / usual, 1.4);
    EXPECT_LE(longer / usual, 1.5);
}

TEST(PseudoLanguage, HasAnAccentOnEveryLetterThatIsNeitherMarkedNorInATag) {
    const auto pseudo = textsIn(kPseudoLanguage);
    const std::regex kept("<[^>]*>|&.");
    const std::regex letter("[A-Za-z]");
    for (const std::string& key : allKeys()) {
        const std::string rest = std::regex_replace(pseudo->GetString(key), kept, "");
        EXPECT_FALSE(std::regex_search(rest, letter)) << key << ": " << rest;
    }
}

TEST(PseudoLanguage, IsNotAmongThoseThatAreShipped) {
    for (const std::string& each : shippedLanguages()) EXPECT_NE(each, kPseudoLanguage);
    EXPECT_EQ(bundleLanguages(WYNCONFIG_PSEUDO_RESOURCES).size(), 1u);
}

}  // namespace
}  // namespace wynconfig
