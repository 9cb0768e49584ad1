// The resource manager that reads the texts: which files serve a locale, how they lie over each
// other, and what languages there are to choose from.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/resources/text_file.h"
#include "support/temporary_folder.h"
#include "support/text_keys.h"
#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

void writeFile(const fs::path& file, const std::string& content) {
    std::ofstream out(file, std::ios::binary);
    out << content;
    out.close();
    ASSERT_TRUE(out) << file;
}

void copyEnglish(const fs::path& folder) {
    fs::copy_file(fs::path(WYNCONFIG_RESOURCES) / "en.xlf", folder / "en.xlf");
}

/// A unit of an XLIFF file; the target as it stands in the file.
std::string unit(const std::string& key, const std::string& target) {
    return "<trans-unit id='" + key + "'><source>?</source>" + target + "</trans-unit>";
}

std::string unitOf(const std::string& key, const std::string& text) {
    return unit(key, "<target>" + text + "</target>");
}

/// Writes a file of the given units into `folder`; its name is that of a locale.
void writeTexts(const fs::path& folder, const std::string& name, const std::string& units) {
    writeFile(folder / (name + ".xlf"),
              "<xliff version='1.2' xmlns='urn:oasis:names:tc:xliff:document:1.2'>"
              "<file original='x' source-language='en' datatype='plaintext'><body>" +
                  units + "</body></file></xliff>");
}

// A language's name in itself is what the system calls it.
#ifdef _WIN32
const std::string kSimplifiedChinese = "中文(简体)";
const std::string kAustrianGerman = "Deutsch(Österreich)";
#else
const std::string kSimplifiedChinese = "简体中文";
const std::string kAustrianGerman = "ÖsterreichischesDeutsch";
#endif

/// The languages of a folder, without the blanks in their names: versions of Windows differ in
/// them.
std::vector<Language> languagesIn(const std::string& folder) {
    std::vector<Language> languages = bundleLanguages(folder);
    for (Language& each : languages) std::erase(each.name, ' ');
    return languages;
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
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "en"), Error);
    EXPECT_THROW(makeBundleResourceManager((folder / "none").string(), "en"), Error);
    EXPECT_THROW(makeBundleResourceManager("", "en"), Error);
    fs::create_directory(folder / "en.xlf");
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "en"), Error);
}

TEST_F(ResourcesTest, aBundleThatComesLaterIsFound) {
    const TemporaryFolder folder;
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "en"), Error);
    copyEnglish(folder.path());
    EXPECT_EQ(makeBundleResourceManager(folder.path(), "en")->GetString("BUTTON_OK"), "OK");
}

TEST_F(ResourcesTest, aFileThatIsNoBundleRaises) {
    const TemporaryFolder folder;
    writeFile(folder / "en.xlf", "BUTTON_OK=OK\n");
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "en"), Error);
    writeFile(folder / "fr.xlf", "");
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "fr"), Error);
}

TEST_F(ResourcesTest, theFailureNamesTheFileAndWhatIsWrongWithIt) {
    const TemporaryFolder folder;
    writeFile(folder / "en.xlf", "<xliff version='1.2'>");
    try {
        makeBundleResourceManager(folder.path(), "en");
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::BadRecord);
        EXPECT_EQ(error.description().find("The texts in "), 0U) << error.description();
        for (const char* part : {"en.xlf", " can't be read: it is not well-formed XML (line 1: "})
            EXPECT_NE(error.description().find(part), std::string::npos) << error.description();
    }
}

TEST_F(ResourcesTest, aFileOfMoreBytesThanAnyTextsNeedIsRefused) {
    const TemporaryFolder folder;
    const std::string small = "<xliff/>";
    const std::string large = small + std::string(kMaxTextFileSize - small.size(), ' ');
    writeFile(folder / "en.xlf", large);
    EXPECT_NO_THROW(makeBundleResourceManager(folder.path(), "en"));
    writeFile(folder / "en.xlf", large + " ");
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "en"), Error);
}

TEST_F(ResourcesTest, aTextWithoutTranslationIsEnglish) {
    const TemporaryFolder folder;
    copyEnglish(folder.path());
    writeTexts(folder.path(), "de",
               unit("BUTTON_OK", "") + unit("BUTTON_NEW", "<target state='new'/>") +
                   unit("BUTTON_COPY", "<target state='needs-translation'></target>") +
                   unit("BUTTON_EDIT", "<target state='needs-translation'>&amp;Ändern</target>") +
                   unit("BUTTON_ADD", "<target state='translated'/>"));
    const auto texts = makeBundleResourceManager(folder.path(), "de");
    EXPECT_EQ(texts->GetString("BUTTON_OK"), "OK");
    EXPECT_EQ(texts->GetString("BUTTON_NEW"), "&New");
    EXPECT_EQ(texts->GetString("BUTTON_COPY"), "&Copy");
    EXPECT_EQ(texts->GetString("BUTTON_EDIT"), "&Ändern");
    EXPECT_EQ(texts->GetString("BUTTON_ADD"), "");
}

TEST_F(ResourcesTest, EnglishIsItsSourceUnlessItHasATarget) {
    const TemporaryFolder folder;
    writeTexts(folder.path(), "en", unit("BUTTON_OK", "") + unitOf("BUTTON_NEW", "Neu"));
    writeTexts(folder.path(), "en-GB", unit("BUTTON_OK", ""));
    for (const char* locale : {"en", "en-GB"}) {
        const auto texts = makeBundleResourceManager(folder.path(), locale);
        EXPECT_EQ(texts->GetString("BUTTON_OK"), "?") << locale;
        EXPECT_EQ(texts->GetString("BUTTON_NEW"), "Neu") << locale;
    }
}

TEST_F(ResourcesTest, aFileIsFoundByItsNameWithEitherMarkBetweenItsParts) {
    const TemporaryFolder folder;
    writeTexts(folder.path(), "zh_Hans", unitOf("BUTTON_OK", "一"));
    EXPECT_EQ(makeBundleResourceManager(folder.path(), "zh-CN")->GetString("BUTTON_OK"), "一");
    EXPECT_EQ(bundleLanguages(folder.path()).size(), 1U);
    writeTexts(folder.path(), "zh-Hans", unitOf("BUTTON_OK", "二"));
    EXPECT_EQ(makeBundleResourceManager(folder.path(), "zh-CN")->GetString("BUTTON_OK"), "二");
    ASSERT_EQ(bundleLanguages(folder.path()).size(), 1U);
    EXPECT_EQ(bundleLanguages(folder.path())[0].tag, "zh-Hans");
}

TEST_F(ResourcesTest, theFolderMayHaveAnyName) {
    const TemporaryFolder parent;
    const std::string name = "文字 ü";
    const fs::path folder = fs::path(parent.path()) / std::u8string(name.begin(), name.end());
    fs::create_directory(folder);
    copyEnglish(folder);
    EXPECT_EQ(makeBundleResourceManager(parent.path() + "/" + name, "en")->GetString("BUTTON_OK"),
              "OK");
}

TEST_F(ResourcesTest, theFolderMayBeSpeltInAnyWay) {
    const TemporaryFolder parent;
    const fs::path folder = parent / "texts v1.2";
    fs::create_directory(folder);
    copyEnglish(folder);
    // There is no way from one drive of Windows to another.
    const fs::path way = fs::relative(folder);
    for (const std::string& spelling :
         {folder.string(), folder.string() + "/", folder.string() + "//",
          (folder / "..").string() + "/texts v1.2", (way.empty() ? folder : way).string()}) {
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
    writeTexts(folder.path(), "de",
               unitOf("BUTTON_APPLY", "Übernehmen") + unitOf("BUTTON_COPY", "Kopieren") +
                   unitOf("BUTTON_NEW", "") + unit("NOT_A_TEXT", ""));
    writeTexts(folder.path(), "de-AT", unitOf("BUTTON_COPY", "Kopie 🧾"));

    for (const char* locale : {"de", "de-DE", "de_DE", "DE", "de_DE.UTF-8", "de-DE-u-co-phonebk"}) {
        const auto texts = makeBundleResourceManager(folder.path(), locale);
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
    const auto austrian = makeBundleResourceManager(folder.path(), "de-AT");
    EXPECT_EQ(austrian->GetString("BUTTON_COPY"), "Kopie 🧾");
    EXPECT_EQ(austrian->GetString("BUTTON_APPLY"), "Übernehmen");
    const auto english = makeBundleResourceManager(folder.path(), "en-GB");
    EXPECT_EQ(english->GetString("BUTTON_APPLY"), text("BUTTON_APPLY"));
}

TEST_F(ResourcesTest, aLanguageServesWithoutEnglish) {
    const TemporaryFolder folder;
    writeTexts(folder.path(), "de", unitOf("BUTTON_OK", "Gut"));
    const auto texts = makeBundleResourceManager(folder.path(), "de");
    EXPECT_EQ(texts->GetString("BUTTON_OK"), "Gut");
    descriptionOfFailure(*texts, "BUTTON_CANCEL");
    EXPECT_THROW(makeBundleResourceManager(folder.path(), "fr"), Error);
}

TEST_F(ResourcesTest, aLocaleTakesTheNearestLanguageOfItsScript) {
    const std::vector<std::pair<std::string, std::string>> taken = {
        {"en", "en"},         {"en-GB", "en"},       {"en_US_POSIX", "en"},
        {"de", "de"},         {"de-AT", "de"},       {"de_CH.UTF-8", "de"},
        {"fr-CA", "fr"},      {"es-MX", "es"},       {"es-419", "es"},
        {"it-CH", "it"},      {"pt-BR", "pt"},       {"pt-PT", "pt"},
        {"ja-JP", "ja"},      {"ar-EG", "ar"},       {"zh", "zh-Hans"},
        {"zh-CN", "zh-Hans"}, {"zh_SG", "zh-Hans"},  {"zh-Hans-HK", "zh-Hans"},
        {"zh-TW", "en"},      {"zh-HK", "en"},       {"zh-Hant", "en"},
        {"zh-Hant-CN", "en"}, {"zh_TW.UTF-8", "en"}, {"az-Arab", "en"},
        {"nl", "en"},         {"de-Latn-AT", "de"},  {"zh_CN@x=y", "zh-Hans"},
#ifndef _WIN32
        {"deu", "de"},  // Windows knows a language by its shortest code alone
#endif
    };
    for (const auto& [locale, tag] : taken) {
        EXPECT_EQ(bundleLanguage(WYNCONFIG_RESOURCES, locale).tag, tag) << locale;
        const auto texts = makeBundleResourceManager(WYNCONFIG_RESOURCES, locale);
        const auto expected = makeBundleResourceManager(WYNCONFIG_RESOURCES, tag);
        for (const std::string& key : allKeys())
            EXPECT_EQ(texts->GetString(key), expected->GetString(key)) << locale << " " << key;
    }
}

TEST_F(ResourcesTest, theLanguagesToChooseFromGoByTheirOwnNames) {
    const std::vector<Language> shipped = {{"ar", "العربية", true},
                                           {"de", "Deutsch", false},
                                           {"en", "English", false},
                                           {"es", "Español", false},
                                           {"fr", "Français", false},
                                           {"it", "Italiano", false},
                                           {"ja", "日本語", false},
                                           {"pt", "Português", false},
                                           {"zh-Hans", kSimplifiedChinese, false}};
    EXPECT_EQ(languagesIn(WYNCONFIG_RESOURCES), shipped);
    for (const Language& each : bundleLanguages(WYNCONFIG_RESOURCES))
        EXPECT_EQ(bundleLanguage(WYNCONFIG_RESOURCES, each.tag), each) << each.tag;
}

TEST_F(ResourcesTest, onlyBundlesThatALocaleCanNameAreLanguages) {
    const TemporaryFolder folder;
    EXPECT_EQ(bundleLanguages(folder.path()), std::vector<Language>{});
    EXPECT_EQ(bundleLanguages((folder / "none").string()), std::vector<Language>{});
    EXPECT_EQ(bundleLanguages(""), std::vector<Language>{});
    EXPECT_THROW(bundleLanguage(folder.path(), "de"), Error);
    writeTexts(folder.path(), "he", unitOf("BUTTON_OK", "אישור"));
    writeTexts(folder.path(), "de-AT", unitOf("BUTTON_OK", "Passt"));
    for (const char* other : {"notes.txt", "pt-br.xlf", "ja.XLF", "no language.xlf", ".xlf", "en"})
        writeFile(folder / other, "");
    fs::create_directory(folder / "fr.xlf");
    const std::vector<Language> languages = {{"de-AT", kAustrianGerman, false},
                                             {"he", "עברית", true}};
    EXPECT_EQ(languagesIn(folder.path()), languages);
    EXPECT_EQ(bundleLanguage(folder.path(), "de-AT"), bundleLanguages(folder.path())[0]);
    EXPECT_THROW(bundleLanguage(folder.path(), "de"), Error);
}

TEST_F(ResourcesTest, theLanguageGivenIsTheOneWhoseTextsAreThere) {
    const TemporaryFolder folder;
    copyEnglish(folder.path());
    EXPECT_EQ(bundleLanguage(folder.path(), "ar-EG").tag, "en");
    EXPECT_FALSE(bundleLanguage(folder.path(), "ar-EG").rightToLeft);
    writeTexts(folder.path(), "zh_TW", unitOf("BUTTON_OK", "確定"));
    EXPECT_EQ(bundleLanguage(folder.path(), "zh-TW").tag, "zh-TW");
    EXPECT_EQ(bundleLanguage(folder.path(), "zh-Hant-TW").tag, "zh-TW");
    EXPECT_EQ(bundleLanguage(folder.path(), "zh-Hans-TW").tag, "en");
    EXPECT_EQ(makeBundleResourceManager(folder.path(), "zh-Hant-TW")->GetString("BUTTON_OK"),
              "確定");
}

}  // namespace
}  // namespace wynconfig
