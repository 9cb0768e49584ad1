// Locales: the parts of their names, whose texts serve them, their languages' names and direction.
#include "platform/text/locales.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wynconfig {
namespace {

using Tags = std::vector<std::string>;

std::string partsOfLocale(const std::string& name) {
    const Locale locale = localeOf(name);
    return locale.tag + " " + locale.language + " " + locale.script + " " + locale.region;
}

TEST(Locales, HaveNamesOfParts) {
    EXPECT_EQ(partsOfLocale("de"), "de de Latn ");
    EXPECT_EQ(partsOfLocale("de-AT"), "de-AT de Latn AT");
    EXPECT_EQ(partsOfLocale("zh-CN"), "zh-CN zh Hans CN");
    EXPECT_EQ(partsOfLocale("zh-TW"), "zh-TW zh Hant TW");
    EXPECT_EQ(partsOfLocale("zh-Hans-HK"), "zh-Hans-HK zh Hans HK");
    EXPECT_EQ(partsOfLocale("ar-EG"), "ar-EG ar Arab EG");
    EXPECT_EQ(partsOfLocale("ja-JP"), "ja-JP ja Jpan JP");
    EXPECT_EQ(partsOfLocale("ko-KR"), "ko-KR ko Kore KR");
    EXPECT_EQ(partsOfLocale("es-419"), "es-419 es Latn 419");
    EXPECT_EQ(partsOfLocale("en-ZA"), "en-ZA en Latn ZA");
    EXPECT_EQ(partsOfLocale("en-001"), "en-001 en Latn 001");
    EXPECT_EQ(partsOfLocale("az-Arab"), "az-Arab az Arab ");
}

TEST(Locales, AreKnownByNamesInAnyForm) {
    for (const char* name :
         {"de-AT", "de_AT", "DE-at", "de_AT.UTF-8", "de_AT@currency=EUR", "de-AT-u-co-phonebk"})
        EXPECT_EQ(partsOfLocale(name), "de-AT de Latn AT") << name;
    EXPECT_EQ(localeOf("zh_hans_cn").tag, "zh-Hans-CN");
    EXPECT_EQ(localeOf("en_US_POSIX").tag, "en-US-POSIX");
    EXPECT_EQ(localeOf("xx").tag, "xx");
}

TEST(Locales, HaveNoPartsOfWhatIsNoName) {
    for (const std::string& name :
         {std::string("../en"), std::string("no language"), std::string("de/AT"),
          std::string(1000, 'x'), std::string("-"), std::string("d\xC3\xA9")})
        EXPECT_EQ(partsOfLocale(name), "   ") << name;
    EXPECT_EQ(localesServing("no language"), Tags{"en"});
}

TEST(Locales, OfTheUserIsOne) {
    EXPECT_FALSE(localeOf("").tag.empty());
    EXPECT_EQ(localesServing(""), localesServing(localeOf("").tag));
}

TEST(Locales, AreServedByTheTextsOfTheirLanguageInTheirScript) {
    EXPECT_EQ(localesServing("en"), (Tags{"en", "en-Latn"}));
    EXPECT_EQ(localesServing("de-AT"), (Tags{"en", "de", "de-Latn", "de-AT", "de-Latn-AT"}));
    EXPECT_EQ(localesServing("zh-CN"), (Tags{"en", "zh", "zh-Hans", "zh-CN", "zh-Hans-CN"}));
    EXPECT_EQ(localesServing("zh-TW"), (Tags{"en", "zh-Hant", "zh-TW", "zh-Hant-TW"}));
    EXPECT_EQ(localesServing("zh-Hant-CN"), (Tags{"en", "zh-Hant", "zh-Hant-CN"}));
    EXPECT_EQ(localesServing("en-US-POSIX").back(), "en-US-POSIX");
}

TEST(Locales, HaveTheirOwnNames) {
    EXPECT_EQ(ownNameOf("de"), "Deutsch");
    EXPECT_EQ(ownNameOf("es"), "Español");
    EXPECT_EQ(ownNameOf("ja"), "日本語");
    EXPECT_EQ(ownNameOf("ar"), "العربية");
    EXPECT_EQ(ownNameOf("xx"), "xx");
}

TEST(Locales, AreReadInTheDirectionOfTheirScript) {
    for (const char* tag : {"ar", "ar-EG", "he", "fa-IR"}) EXPECT_TRUE(isRightToLeft(tag)) << tag;
    for (const char* tag : {"en", "de-AT", "ja", "zh-Hans", "xx"})
        EXPECT_FALSE(isRightToLeft(tag)) << tag;
}

}  // namespace
}  // namespace wynconfig
