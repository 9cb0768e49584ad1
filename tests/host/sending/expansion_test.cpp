// How the sample host lays a parts list out: fields, records, pages.
#include "sending/expansion.h"

#include <gtest/gtest.h>

#include <string>

namespace host {
namespace {

FieldLayout field(const std::string& length, bool right, const std::string& pad) {
    return {.on = true, .length = length, .right = right, .pad = pad};
}

PartsList threeParts() {
    return {"ZZZ12345678901234",
            {{"AA-1", 1, "Filter"}, {"BB-2", 20, "Ölwanne"}, {"CC-3", 300, "Belt, \"long\""}}};
}

PartFormat numbersOnly(const std::string& maxRecords) {
    PartFormat format;
    format.header = "[";
    format.record = "<Part #>";
    format.separator = ",";
    format.trailer = "]";
    format.maxRecords = maxRecords;
    return format;
}

std::string textOf(const PartFormat& format, const PartsList& list = threeParts()) {
    return expand(format, list, false).text;
}

std::string recordOf(const std::string& record) {
    PartFormat format;
    format.record = record;
    return textOf(format, {"VIN17", {{"AA-1", 7, "Filter"}}});
}

TEST(Field, ThatIsOffLeavesItsValue) {
    FieldLayout off = field("3", true, "*");
    off.on = false;
    EXPECT_EQ(layOut(off, "12345").text, "12345");
    EXPECT_EQ(layOut(off, "1").text, "1");
    EXPECT_FALSE(layOut(off, "12345").cut);
}

TEST(Field, AlignedRightIsPaddedOnTheLeftAndTheOtherWayRound) {
    EXPECT_EQ(layOut(field("5", true, "0"), "42").text, "00042");
    EXPECT_EQ(layOut(field("5", false, "."), "42").text, "42...");
}

TEST(Field, OfExactlyItsLengthStays) {
    EXPECT_EQ(layOut(field("2", true, "0"), "42").text, "42");
    EXPECT_FALSE(layOut(field("2", true, "0"), "42").cut);
}

TEST(Field, LosesTheEndOfALongValueWhateverItsAlignment) {
    EXPECT_EQ(layOut(field("3", true, "0"), "12345").text, "123");
    EXPECT_EQ(layOut(field("3", false, "0"), "12345").text, "123");
    EXPECT_TRUE(layOut(field("3", false, "0"), "12345").cut);
}

TEST(Field, RepeatsAPadOfSeveralCharactersFromTheLeftUntilTheGapIsFull) {
    EXPECT_EQ(layOut(field("7", true, "ab"), "42").text, "ababa42");
    EXPECT_EQ(layOut(field("7", false, "ab"), "42").text, "42ababa");
    EXPECT_EQ(layOut(field("3", false, "abcd"), "42").text, "42a");
}

TEST(Field, CountsCharactersNotBytes) {
    EXPECT_EQ(layOut(field("4", false, "."), "Öl").text, "Öl..");
    EXPECT_EQ(layOut(field("1", false, "."), "Öl").text, "Ö");
    EXPECT_EQ(layOut(field("5", true, "€x"), "Öl").text, "€x€Öl");
}

TEST(Field, PadsWithTheCharacterOfAControlToken) {
    EXPECT_EQ(layOut(field("4", true, "<SPACE>"), "42").text, "  42");
    EXPECT_EQ(layOut(field("3", false, "<TAB>"), "42").text, "42\t");
    EXPECT_EQ(layOut(field("6", false, "<CR><LF>"), "42").text, "42\r\n\r\n");
}

TEST(Field, PadsWithTheLettersOfAnyOtherToken) {
    EXPECT_EQ(layOut(field("4", false, "<VIN>"), "42").text, "42<V");
}

TEST(Field, WithoutAPadIsFilledWithBlanks) {
    EXPECT_EQ(layOut(field("4", true, ""), "42").text, "  42");
}

TEST(Field, OfAnEmptyValueIsAllPad) {
    EXPECT_EQ(layOut(field("3", true, "-"), "").text, "---");
}

TEST(Field, WithALengthThatIsNoneLeavesItsValue) {
    for (const std::string length : {"0", "-4", "0.9", "abc", "", "2,5"})
        EXPECT_EQ(layOut(field(length, true, "*"), "42").text, "42") << length;
}

TEST(Field, TakesTheWholePartOfAFraction) {
    EXPECT_EQ(layOut(field("3.9", true, "*"), "42").text, "*42");
}

TEST(Field, IsNeverLongerThanTenThousandCharacters) {
    EXPECT_EQ(layOut(field("1e9", true, "*"), "42").text.size(), 10000U);
}

TEST(Record, HasTheValuesInPlaceOfTheirTokens) {
    EXPECT_EQ(recordOf("<Quantity> x <Part #>: <Description> for <VIN>"),
              "7 x AA-1: Filter for VIN17");
}

TEST(Record, MayHaveATokenTwice) {
    EXPECT_EQ(recordOf("<Part #>/<Part #>"), "AA-1/AA-1");
}

TEST(Record, KeepsUnknownTokensAndOtherSpellings) {
    for (const std::string text :
         {"<Part#>", "<part #>", "<Price>", "<QUANTITY>", "<Vin>", "a<b>c"})
        EXPECT_EQ(recordOf(text), text);
}

TEST(Record, FindsATokenWithinBrackets) {
    EXPECT_EQ(recordOf("<<Part #>>"), "<AA-1>");
    EXPECT_EQ(recordOf("<Part <Quantity>#>"), "<Part 7#>");
}

TEST(Record, DoesNotLookThroughValues) {
    PartFormat format;
    format.record = "<Part #>|<Description>";
    EXPECT_EQ(textOf(format, {"", {{"<Description>", 1, "<TAB><Part #>"}}}),
              "<Description>|<TAB><Part #>");
}

TEST(Record, LaysEachFieldOutByItsOwnSettings) {
    PartFormat format;
    format.record = "<Part #><Quantity><Description><VIN>";
    format.part = field("6", false, ".");
    format.quantity = field("4", true, "0");
    format.description = field("3", true, "x");
    format.vin = field("5", false, "_");
    EXPECT_EQ(textOf(format, {"VIN", {{"AA-1", 7, "Filter"}}}), "AA-1..0007FilVIN__");
}

TEST(Expansion, IsHeaderRecordsWithSeparatorsBetweenThemAndTrailer) {
    EXPECT_EQ(textOf(numbersOnly("500")), "[AA-1,BB-2,CC-3]");
}

TEST(Expansion, OfOnePartHasNoSeparator) {
    EXPECT_EQ(textOf(numbersOnly("500"), {"", {{"AA-1", 1, ""}}}), "[AA-1]");
}

TEST(Expansion, OfAnEmptyListIsHeaderAndTrailer) {
    const Expansion expansion = expand(numbersOnly("500"), {}, false);
    EXPECT_EQ(expansion.text, "[]");
    EXPECT_EQ(expansion.pages, 1U);
}

TEST(Expansion, OfEmptyTemplatesIsEmpty) {
    EXPECT_EQ(textOf(PartFormat{}), "");
}

TEST(Expansion, WritesLineEndsAsTheTemplatesNameThem) {
    PartFormat format = numbersOnly("9");
    format.separator = "<CR><LF>";
    EXPECT_EQ(textOf(format), "[AA-1\r\nBB-2\r\nCC-3]");
    format.separator = "<LF>";
    EXPECT_EQ(textOf(format), "[AA-1\nBB-2\nCC-3]");
}

TEST(Expansion, FillsASeparatorFromThePartInFrontOfIt) {
    PartFormat format = numbersOnly("9");
    format.separator = "(<Quantity>)";
    EXPECT_EQ(textOf(format), "[AA-1(1)BB-2(20)CC-3]");
}

TEST(Expansion, KnowsTheVinEverywhereButPartsOnlyWhereAPartIs) {
    PartFormat format;
    format.header = "<VIN><Part #>;";
    format.record = "<VIN>,";
    format.trailer = "<VIN><Quantity><Description>";
    EXPECT_EQ(textOf(format, {"V1", {{"AA-1", 1, ""}}}), "V1<Part #>;V1,V1<Quantity><Description>");
}

TEST(Expansion, InReverseBeginsWithTheLastPart) {
    EXPECT_EQ(expand(numbersOnly("500"), threeParts(), true).text, "[CC-3,BB-2,AA-1]");
    EXPECT_EQ(expand(numbersOnly("2"), threeParts(), true).text, "[CC-3,BB-2][AA-1]");
}

TEST(Expansion, TurnsAPageAtTheMaximumOfRecords) {
    EXPECT_EQ(textOf(numbersOnly("3")), "[AA-1,BB-2,CC-3]");
    EXPECT_EQ(textOf(numbersOnly("2")), "[AA-1,BB-2][CC-3]");
    EXPECT_EQ(textOf(numbersOnly("2.9")), "[AA-1,BB-2][CC-3]");
    const Expansion expansion = expand(numbersOnly("1"), threeParts(), false);
    EXPECT_EQ(expansion.text, "[AA-1][BB-2][CC-3]");
    EXPECT_EQ(expansion.pages, 3U);
}

TEST(Expansion, HasNoLimitWithoutAMaximumFromOneUp) {
    for (const std::string maximum : {"0", "-1", "0.5", "", "many"})
        EXPECT_EQ(textOf(numbersOnly(maximum)), "[AA-1,BB-2,CC-3]") << maximum;
}

TEST(Expansion, TakesAHugeMaximum) {
    EXPECT_EQ(textOf(numbersOnly("1e300")), "[AA-1,BB-2,CC-3]");
}

TEST(Expansion, NumbersItsPages) {
    PartFormat format = numbersOnly("2");
    format.header = "<PageHeader>:";
    format.trailer = ";<PageFooter>.";
    EXPECT_EQ(textOf(format),
              "Parts list, page 1 of 2:AA-1,BB-2;End of page 1 of 2."
              "Parts list, page 2 of 2:CC-3;End of page 2 of 2.");
}

TEST(Expansion, CountsTheValuesThatWereCut) {
    PartFormat format;
    format.record = "<Quantity> <Description>";
    format.quantity = field("2", true, "0");
    format.description = field("6", false, " ");
    EXPECT_EQ(expand(format, threeParts(), false).cutValues, 3U);
}

TEST(Expansion, DoesNotCountValuesThatGoNowhere) {
    PartFormat format;
    format.record = "<Part #>";
    format.description = field("1", false, " ");
    format.vin = field("1", false, " ");
    EXPECT_EQ(expand(format, threeParts(), false).cutValues, 0U);
    format.header = "<VIN>";
    EXPECT_EQ(expand(format, threeParts(), false).cutValues, 1U);
}

}  // namespace
}  // namespace host
