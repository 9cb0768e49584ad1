// Lists of names joined by commas: the cases that the dialogs bring up, and those that a host's
// text may bring up behind them.
#include "store/comma_list.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "support/short_names.h"

namespace wynconfig {
namespace {

using Parts = std::vector<std::string_view>;

std::string joined(const Parts& parts) {
    std::string list;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) list += ',';
        list += parts[i];
    }
    return list;
}

TEST(CommaList, IsTakenApartAtEachComma) {
    EXPECT_EQ(splitAtCommas("A"), (Parts{"A"}));
    EXPECT_EQ(splitAtCommas("A,B,C"), (Parts{"A", "B", "C"}));
    EXPECT_EQ(splitAtCommas("A, B ,C"), (Parts{"A", " B ", "C"}));
    EXPECT_EQ(splitAtCommas("\"A,B\""), (Parts{"\"A", "B\""})) << "there is no quoting";
    EXPECT_EQ(splitAtCommas("部品,Ä;Ö"), (Parts{"部品", "Ä;Ö"}));
    EXPECT_EQ(splitAtCommas("A\r\nB,C"), (Parts{"A\r\nB", "C"}));
}

TEST(CommaList, KeepsItsEmptyParts) {
    EXPECT_EQ(splitAtCommas(""), Parts{});
    EXPECT_EQ(splitAtCommas(","), (Parts{"", ""}));
    EXPECT_EQ(splitAtCommas(",A"), (Parts{"", "A"}));
    EXPECT_EQ(splitAtCommas("A,"), (Parts{"A", ""}));
    EXPECT_EQ(splitAtCommas("A,,B"), (Parts{"A", "", "B"}));
}

TEST(CommaList, ComesBackWhenItsPartsAreJoined) {
    for (const std::string list : {"A", ",", ",,", ",A,,B,", "A,B,C", " , ", "a,A"})
        EXPECT_EQ(joined(splitAtCommas(list)), list);
}

TEST(CommaList, ANameGoesToItsEnd) {
    EXPECT_EQ(withName("", "A"), "A");
    EXPECT_EQ(withName("B,A", "C"), "B,A,C");
    EXPECT_EQ(withName("A,", "B"), "A,,B");
    EXPECT_EQ(withName("AB,CA", "A"), "AB,CA,A") << "a part of a name is not the name";
}

TEST(CommaList, ANameThatItHoldsIsNotAddedAgain) {
    for (const std::string name : {"A", "B", "C"}) EXPECT_EQ(withName("A,B,C", name), "A,B,C");
    EXPECT_EQ(withName("A", "A"), "A");
    EXPECT_EQ(withName("A,A", "A"), "A,A");
    EXPECT_EQ(withName("A,B,C", "b"), "A,B,C,b") << "case counts";
    EXPECT_EQ(withName("A,B", " B"), "A,B, B") << "blanks count";
}

TEST(CommaList, AnEmptyNameIsAName) {
    EXPECT_EQ(withName("", ""), "");
    EXPECT_EQ(withName("A", ""), "A,");
    EXPECT_EQ(withName("A,", ""), "A,");
    EXPECT_EQ(withoutNames("A,,B", {""}), "A,B");
}

TEST(CommaList, ANameWithACommaIsNeverFoundAgain) {
    EXPECT_EQ(withName("A", "B,C"), "A,B,C");
    EXPECT_EQ(withName("A,B,C", "B,C"), "A,B,C,B,C");
    EXPECT_EQ(withoutNames("A,B,C", {"B,C"}), "A,B,C");
}

TEST(CommaList, LosesEveryOccurrenceOfItsNames) {
    EXPECT_EQ(withoutNames("", {"A"}), "");
    EXPECT_EQ(withoutNames("A", {"A"}), "");
    EXPECT_EQ(withoutNames("A,B,A,C,A", {"A"}), "B,C");
    EXPECT_EQ(withoutNames("A,B,C,D", {"D", "B"}), "A,C");
    EXPECT_EQ(withoutNames("A,B", {"C"}), "A,B");
    EXPECT_EQ(withoutNames("A,B", {}), "A,B");
    EXPECT_EQ(withoutNames("A,a,B", {"a"}), "A,B") << "case counts";
    EXPECT_EQ(withoutNames("AB,B,BA", {"B"}), "AB,BA");
}

TEST(CommaList, LosesItsFirstEmptyPartsAlongWithAName) {
    EXPECT_EQ(withoutNames(",A", {"B"}), "A");
    EXPECT_EQ(withoutNames(",,A,,C,", {"B"}), "A,,C,");
    EXPECT_EQ(withoutNames("B,,A", {"B"}), "A");
    EXPECT_EQ(withoutNames(",,", {"B"}), "");
}

/// Dropping names one by one, as the list is loaded, must come to what one pass over all does.
TEST(CommaList, LosesNamesTogetherAsItDoesOneAfterAnother) {
    const std::vector<std::string> lists{"A,B,C,D", ",A,,B,", "B,,D,,A", ",B,D,", "D,B,,,A,B,D,"};
    for (const std::string& list : lists) {
        for (const Names& gone : {Names{"B"}, {"B", "D"}, {"D", "B"}, {"A", "B", "D"}, {"B", ""}}) {
            std::string oneByOne = list;
            for (const std::string& name : gone) oneByOne = withoutNames(oneByOne, {name});
            EXPECT_EQ(withoutNames(list, {gone.begin(), gone.end()}), oneByOne) << list;
        }
    }
}

TEST(CommaList, AMegabyteCostsNoMoreThanItsLength) {
    Names names;
    for (int i = 0; i < 120'000; ++i) names.push_back("NAME" + std::to_string(i));
    const std::string list = joined({names.begin(), names.end()});
    ASSERT_GT(list.size(), 1'000'000U);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(splitAtCommas(list).size(), names.size());
    EXPECT_EQ(withName(list, "NAME119999"), list);
    EXPECT_EQ(withoutNames(list, {names.begin(), names.end() - 1}), "NAME119999");
    EXPECT_EQ(withoutNames(std::string(1'000'000, ','), {""}), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{60});
}

}  // namespace
}  // namespace wynconfig
