// How the sample host reads a program's path and its arguments.
#include "sending/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace host {
namespace {

using Arguments = std::vector<std::string>;

TEST(Arguments, AreSplitAtBlanksAndTabs) {
    EXPECT_EQ(splitArguments("--job new /quiet"), (Arguments{"--job", "new", "/quiet"}));
    EXPECT_EQ(splitArguments("  a \t b  "), (Arguments{"a", "b"}));
    EXPECT_EQ(splitArguments(""), Arguments{});
    EXPECT_EQ(splitArguments(" \t "), Arguments{});
}

TEST(Arguments, KeepBlanksWithinQuotes) {
    EXPECT_EQ(splitArguments(R"(--import "parts list.csv")"),
              (Arguments{"--import", "parts list.csv"}));
    EXPECT_EQ(splitArguments(R"(--file="a b".csv)"), (Arguments{"--file=a b.csv"}));
    EXPECT_EQ(splitArguments(R"("a"b"c d")"), (Arguments{"abc d"}));
}

TEST(Arguments, MayBeEmptyInQuotes) {
    EXPECT_EQ(splitArguments(R"("" a "")"), (Arguments{"", "a", ""}));
}

TEST(Arguments, KeepBackslashesThatStandInFrontOfNoQuote) {
    EXPECT_EQ(splitArguments(R"(C:\lists\new.txt \\server\share)"),
              (Arguments{R"(C:\lists\new.txt)", R"(\\server\share)"}));
    EXPECT_EQ(splitArguments(R"(end\)"), (Arguments{R"(end\)"}));
}

TEST(Arguments, TakeAQuoteBehindABackslashAsACharacter) {
    EXPECT_EQ(splitArguments(R"(\"a b\")"), (Arguments{R"("a)", R"(b")"}));
    EXPECT_EQ(splitArguments(R"("say \"no\" now")"), (Arguments{R"(say "no" now)"}));
}

TEST(Arguments, TakeTwoBackslashesInFrontOfAQuoteAsOne) {
    EXPECT_EQ(splitArguments(R"("C:\my lists\\" next)"), (Arguments{R"(C:\my lists\)", "next"}));
    EXPECT_EQ(splitArguments(R"(a\\\"b)"), (Arguments{R"(a\"b)"}));
}

TEST(Arguments, ReachToTheEndWithAQuoteThatIsNeverClosed) {
    EXPECT_EQ(splitArguments(R"(a "b c )"), (Arguments{"a", "b c "}));
    EXPECT_EQ(splitArguments(R"(a ")"), (Arguments{"a", ""}));
}

TEST(Arguments, TakeSingleQuotesAndOtherSignsAsTheyAre) {
    EXPECT_EQ(splitArguments("'a b' $HOME *.csv a|b;c"),
              (Arguments{"'a", "b'", "$HOME", "*.csv", "a|b;c"}));
    EXPECT_EQ(splitArguments("Größe=ü €"), (Arguments{"Größe=ü", "€"}));
}

TEST(Arguments, AreWrittenSoThatTheyAreReadTheSame) {
    for (const std::string argument :
         {"plain", "", " ", "two words", R"(a"b)", R"(a\"b)", R"(end\)", R"(with blank\)",
          R"(\\s\\)", R"(" ")", "tab\there", R"(\)", R"(")", R"(a \" b \\" c\\)"})
        EXPECT_EQ(splitArguments(quoted(argument)), Arguments{argument}) << quoted(argument);
}

TEST(Arguments, AreQuotedOnlyWhereTheyNeedIt) {
    EXPECT_EQ(quoted(R"(C:\a\)"), R"(C:\a\)");
    EXPECT_EQ(quoted("a b"), R"("a b")");
    EXPECT_EQ(quoted(""), R"("")");
}

TEST(CommandLine, HasTheWholePathAsItsProgram) {
    EXPECT_EQ(readCommandLine("/opt/order desk", "").program, "/opt/order desk");
    EXPECT_EQ(readCommandLine(R"("/opt/order desk")", "").program, "/opt/order desk");
    EXPECT_EQ(readCommandLine(R"(  "/opt/order desk" )", "").program, "/opt/order desk");
    EXPECT_EQ(readCommandLine("", "a").program, "");
    EXPECT_EQ(readCommandLine(R"("")", "a").program, "");
}

TEST(CommandLine, KeepsAQuoteThatIsNotAroundTheWholePath) {
    EXPECT_EQ(readCommandLine(R"("/opt/desk)", "").program, R"("/opt/desk)");
    EXPECT_EQ(readCommandLine(R"(")", "").program, R"(")");
}

TEST(CommandLine, IsToldInOneLine) {
    const CommandLine command = readCommandLine(R"("/opt/order desk")", R"(/quiet "two words" "")");
    EXPECT_EQ(textOf(command), R"("/opt/order desk" /quiet "two words" "")");
}

}  // namespace
}  // namespace host
