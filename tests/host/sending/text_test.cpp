// The small rules of the sample host: numbers, characters, tokens, the form of a VIN, and bytes
// made visible.
#include <gtest/gtest.h>

#include <string>

#include "sending/characters.h"
#include "sending/stored_number.h"
#include "sending/tokens.h"
#include "sending/vin.h"
#include "sending/visible_text.h"

namespace host {
namespace {

TEST(StoredNumber, ReadsDecimalNumbersWithBlanksAroundThem) {
    EXPECT_EQ(storedNumber("20"), 20.0);
    EXPECT_EQ(storedNumber("  20 "), 20.0);
    EXPECT_EQ(storedNumber("+7"), 7.0);
    EXPECT_EQ(storedNumber("-4"), -4.0);
    EXPECT_EQ(storedNumber("1.5"), 1.5);
    EXPECT_EQ(storedNumber(".5"), 0.5);
    EXPECT_EQ(storedNumber("1e3"), 1000.0);
}

TEST(StoredNumber, IsNothingForAnyOtherText) {
    for (const std::string text :
         {"",    " ",   "abc",  "2,5", "1,000", "7s", "7 s", "$20",   "0x10", "&H10",
          "inf", "nan", "-inf", "+-3", "--3",   "-",  "+",   "1e999", "\t7",  "1.2.3"})
        EXPECT_FALSE(storedNumber(text).has_value()) << text;
}

TEST(StoredNumber, ReadsFormsOfFullWidth) {
    EXPECT_EQ(storedNumber("２０"), 20.0);
    EXPECT_EQ(storedNumber("　－１．５ｅ２ "), -150.0);
    EXPECT_EQ(storedNumber("＋7９Ｅ－1"), 7.9);
    EXPECT_EQ(storedCount("１２３４５６７８９０", 2'000'000'000), 1'234'567'890);
    for (const std::string text :
         {"２，５", "１個", "＄２０", "二", "　", "\uFF5F1", "\uFF001", "1\uFF5F"})
        EXPECT_FALSE(storedNumber(text).has_value()) << text;
}

TEST(StoredNumber, CountsTheWholePartFromOneUp) {
    EXPECT_EQ(storedCount("20", 100), 20);
    EXPECT_EQ(storedCount("1.9", 100), 1);
    EXPECT_EQ(storedCount("1", 100), 1);
    for (const std::string text : {"0", "0.9", "-4", "", "abc"})
        EXPECT_FALSE(storedCount(text, 100).has_value()) << text;
}

TEST(StoredNumber, TakesTheMostForEverythingAbove) {
    EXPECT_EQ(storedCount("101", 100), 100);
    EXPECT_EQ(storedCount("1e300", 100), 100);
}

TEST(Characters, CountCodePointsAndSingleBytesThatAreNoUtf8) {
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("abc"), 3U);
    EXPECT_EQ(characterCount("Öl€😀"), 4U);
    EXPECT_EQ(characterCount("\xFF\x80"), 2U);
    EXPECT_EQ(characterCount("\xC3"), 1U);      // cut off at the end
    EXPECT_EQ(characterCount("\xC3("), 2U);     // no continuation
    EXPECT_EQ(characterCount("\xC0\x80"), 2U);  // longer than it need be
}

TEST(Characters, AreNeverCutInTheirMiddle) {
    EXPECT_EQ(firstCharacters("Öl€", 0), "");
    EXPECT_EQ(firstCharacters("Öl€", 1), "Ö");
    EXPECT_EQ(firstCharacters("Öl€", 2), "Öl");
    EXPECT_EQ(firstCharacters("Öl€", 3), "Öl€");
    EXPECT_EQ(firstCharacters("Öl€", 9), "Öl€");
}

TEST(Tokens, OfControlsStandForOneByteEach) {
    EXPECT_EQ(expandTokens("<TAB><SPACE><CR><LF><ESCAPE>", controlTokens()), "\t \r\n\x1B");
}

TEST(Tokens, AreKnownExactlyAsTheyAreWritten) {
    for (const std::string text : {"<tab>", "<Tab>", "< TAB>", "<TAB", "TAB>", "<>", "<<>>"})
        EXPECT_EQ(expandTokens(text, controlTokens()), text);
}

TEST(Tokens, WithinOtherBracketsAreFound) {
    EXPECT_EQ(expandTokens("<<TAB>>", controlTokens()), "<\t>");
    EXPECT_EQ(expandTokens("<a<CR>b>", controlTokens()), "<a\rb>");
}

TEST(Tokens, InAValueAreNotLookedForAgain) {
    EXPECT_EQ(expandTokens("<A>B>", {{"<A>", "<TA"}, {"<TAB>", "x"}}), "<TAB>");
}

TEST(Vin, GivesNoHintWhenItIsWellFormedOrAbsent) {
    EXPECT_EQ(vinHint(""), "");
    EXPECT_EQ(vinHint("ZZZ12345678901234"), "");
    EXPECT_EQ(vinHint("zzz12345678901234"), "");
}

TEST(Vin, HintsAtAWrongLength) {
    EXPECT_EQ(vinHint("ZZZ"), "A VIN has 17 characters; this has 3.");
    EXPECT_EQ(vinHint("ZZZ123456789012345"), "A VIN has 17 characters; this has 18.");
}

TEST(Vin, HintsAtACharacterThatNoVinHas) {
    EXPECT_EQ(vinHint("ZZZ1234567890123O"), "A VIN has no \"O\".");
    EXPECT_EQ(vinHint("ZZZ1234567890123q"), "A VIN has no \"q\".");
    EXPECT_EQ(vinHint("ZZZ 123"), "A VIN has no \" \".");
    EXPECT_EQ(vinHint("ZÖ"), "A VIN has no \"Ö\".");
}

TEST(VisibleText, NamesControlCharactersAndKeepsTheLines) {
    EXPECT_EQ(visibleText("a\tb\r\nc\n\x1B@"), "a‹TAB›b‹CR›‹LF›\nc‹LF›\n‹ESC›@");
    EXPECT_EQ(visibleText("\x7F\x07"), "‹7F›‹07›");
    EXPECT_EQ(visibleText(std::string(1, '\0')), "‹00›");
}

TEST(VisibleText, EndsALineBehindACarriageReturnAlone) {
    EXPECT_EQ(visibleText("a\rb"), "a‹CR›\nb");
    EXPECT_EQ(visibleText("a\r"), "a‹CR›\n");
}

TEST(VisibleText, KeepsOtherTextAndShowsBytesThatAreNoUtf8) {
    EXPECT_EQ(visibleText("Öl 5€ <x>"), "Öl 5€ <x>");
    EXPECT_EQ(visibleText("a\xFFz"), "a‹FF›z");
}

}  // namespace
}  // namespace host
