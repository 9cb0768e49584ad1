// Texts by their keys: which folder they come from, what stands in their places, and the forms of
// numbers.
#include "texts/phrase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/temporary_folder.h"
#include "texts/count_form.h"
#include "texts/system_words.h"
#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

namespace host {
namespace {

namespace fs = std::filesystem;

/// Writes numbers so that it shows who did it.
NumberWriting marked() {
    return {[](long long number) { return "n" + std::to_string(number); },
            [](double) { return std::string("d"); }};
}

class HostPhrase : public testing::Test {
  protected:
    void TearDown() override {
        usePhrases(hostTextFolder(WYNCONFIG_RESOURCES), "en",
                   {[](long long number) { return std::to_string(number); },
                    [](double number) { return std::to_string(number); }});
    }

    /// A folder of texts in a language of one unit.
    std::string textsOf(const std::string& tag, const std::string& key, const std::string& text) {
        std::ofstream(fs::path(m_folder.path()) / (tag + ".xlf"))
            << "<xliff version='1.2' xmlns='urn:oasis:names:tc:xliff:document:1.2'>"
               "<file original='x' source-language='en' datatype='plaintext'><body>"
               "<trans-unit id='"
            << key << "'><source>?</source><target>" << text
            << "</target></trans-unit></body></file></xliff>";
        return m_folder.path();
    }

    wynconfig::TemporaryFolder m_folder;
};

TEST_F(HostPhrase, HasItsValuesInTheOrderOfTheLanguage) {
    usePhrases(textsOf("de", "PLACES", "%2 nach %1, 100%"), "de", marked());
    EXPECT_EQ(phrase("PLACES", {"a", "b"}), "b nach a, 100%");
}

TEST_F(HostPhrase, TakesAValueAsItIs) {
    usePhrases(textsOf("de", "PLACES", "%1 %2"), "de", marked());
    EXPECT_EQ(phrase("PLACES", {"%2", "%1%%"}), "%2 %1%%");
}

TEST_F(HostPhrase, IsItsKeyWhereThereIsNoText) {
    EXPECT_EQ(phrase("NO_SUCH_TEXT", {"a"}), "NO_SUCH_TEXT");
}

TEST_F(HostPhrase, StaysInItsLanguageWhereTheNewOneCantBeRead) {
    usePhrases(textsOf("de", "WORD", "Wort"), "de", marked());
    EXPECT_THROW(usePhrases(m_folder / "nowhere", "fr", marked()), wynconfig::Error);
    EXPECT_EQ(phrase("WORD"), "Wort");
    EXPECT_EQ(wholeText(3), "n3");
    EXPECT_EQ(decimalText(3), "d");
}

TEST_F(HostPhrase, ComesFromBelowTheFolderOfTheDialogsTexts) {
    fs::create_directory(m_folder / "sample-host");
    EXPECT_EQ(fs::path(hostTextFolder(m_folder.path())), fs::path(m_folder / "sample-host"));
    EXPECT_EQ(fs::path(hostTextFolder(m_folder / "nowhere")),
              fs::path(wynconfig::bundleFolder()) / "sample-host");
}

TEST_F(HostPhrase, HasTheFormOfItsNumber) {
    usePhrases(textsOf("ar", "BYTES_TWO", "two of %1"), "ar", marked());
    EXPECT_EQ(countedPhrase("BYTES", 2), "two of n2");
    usePhrases(hostTextFolder(WYNCONFIG_RESOURCES), "en", marked());
    EXPECT_EQ(countedPhrase("BYTES", 1), "n1 byte");
    EXPECT_EQ(countedPhrase("BYTES", 0), "n0 bytes");
}

TEST(CountForm, FollowsTheLanguage) {
    for (const char* each : {"de", "en", "es", "it", "nl"}) {
        EXPECT_EQ(countForm(each, 1), "ONE") << each;
        for (const long long count : {0, 2, 11, 101}) EXPECT_EQ(countForm(each, count), "OTHER");
    }
    for (const char* each : {"fr", "pt"}) {
        for (const long long count : {0, 1}) EXPECT_EQ(countForm(each, count), "ONE") << each;
        for (const long long count : {2, 101}) EXPECT_EQ(countForm(each, count), "OTHER") << each;
    }
    for (const char* each : {"ja", "zh-Hans"})
        for (const long long count : {0, 1, 2}) EXPECT_EQ(countForm(each, count), "OTHER") << each;
}

TEST(CountForm, HasFiveInArabic) {
    EXPECT_EQ(countForm("ar", 1), "ONE");
    EXPECT_EQ(countForm("ar", 2), "TWO");
    for (const long long count : {3, 10, 103, 1010}) EXPECT_EQ(countForm("ar", count), "FEW");
    for (const long long count : {11, 99, 111, 1099}) EXPECT_EQ(countForm("ar", count), "MANY");
    for (const long long count : {0, 100, 101, 102, 200})
        EXPECT_EQ(countForm("ar", count), "OTHER");
}

TEST_F(HostPhrase, TellsTheUsualReasonsOfTheSystem) {
    const auto words = [](std::errc code) { return systemWords(std::make_error_code(code)); };
    EXPECT_EQ(words(std::errc::permission_denied), "you have no right to do so");
    EXPECT_EQ(words(std::errc::no_space_on_device), "there is no space left on the disk");
    EXPECT_EQ(words(std::errc::is_a_directory), "it is a folder");
    const auto rare = std::make_error_code(std::errc::network_down);
    EXPECT_EQ(systemWords(rare), rare.message());
}

TEST_F(HostPhrase, FindsTheReasonInASentenceOfTheComponent) {
    EXPECT_EQ(reasonTold("The file /a can't be written: No space left on device."),
              "there is no space left on the disk");
    EXPECT_EQ(reasonTold("The file /a is no record."), "");
    EXPECT_EQ(inUsersWords("It can't be read: Permission denied."), "you have no right to do so.");
    EXPECT_EQ(inUsersWords("The file /a is no record."), "The file /a is no record.");
}

}  // namespace
}  // namespace host
