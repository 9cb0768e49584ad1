// Sessions and part formats in words.
#include "sending/summary.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace host {
namespace {

bool has(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST(Summary, OfASessionTellsItsSettings) {
    Session session;
    session.name = "DESK";
    session.programPath = "/opt/desk";
    session.commandLineArgs = "/quiet";
    session.launchDelay = "2";
    session.formats = {"ONE", "TWO"};
    session.reverseList = true;
    session.fileFormat = "TWO";
    session.fileName = "list.txt";
    session.fileFolder = "/lists";
    session.append = true;
    session.orientation = "left";
    std::vector<std::string> lines = summaryOf(session);
    EXPECT_EQ(lines.front(), "Session DESK");
    for (const char* line :
         {"  Program: /opt/desk", "  Command line: /quiet", "  Program is started: yes",
          "  Program launch delay: 2", "  Part formats: ONE, TWO", "  Reversed list: yes",
          "  File: list.txt in /lists, appended to, laid out by TWO", "  Orientation: left"})
        EXPECT_TRUE(has(lines, line)) << line;
    session.append = false;
    session.writeFileOnly = true;
    lines = summaryOf(session);
    EXPECT_TRUE(has(lines, "  File: list.txt in /lists, overwritten, laid out by TWO"));
    EXPECT_TRUE(has(lines, "  Program is started: no"));
}

TEST(Summary, OfAnEmptySessionTellsWhatItLacks) {
    const std::vector<std::string> lines = summaryOf(Session{});
    for (const char* line : {"  Program: none", "  Part formats: none", "  File: none"})
        EXPECT_TRUE(has(lines, line)) << line;
}

TEST(Summary, OfAPartFormatTellsItsTemplatesAndFields) {
    PartFormat format;
    format.name = "ONE";
    format.record = "<Part #>";
    format.part = {.on = true, .length = "18", .right = false, .pad = "<SPACE>"};
    format.quantity = {.on = true, .length = "5", .right = true, .pad = ""};
    const std::vector<std::string> lines = summaryOf(format);
    EXPECT_EQ(lines.front(), "Part format ONE");
    for (const char* line :
         {"  Header: none", "  Record: <Part #>",
          "  Part number: 18 characters, at the left, filled with <SPACE>",
          "  Quantity: 5 characters, at the right, filled with blanks", "  VIN: as it is"})
        EXPECT_TRUE(has(lines, line)) << line;
}

TEST(Summary, SetsItsValuesApartWhereItIsTold) {
    PartFormat format;
    format.name = "LABELS";
    format.header = "<CR><LF>";
    const auto lines =
        summaryOf(format, [](const std::string& value) { return "[" + value + "]"; });
    EXPECT_EQ(lines.at(0), "Part format LABELS");
    EXPECT_EQ(lines.at(1), "  Header: [<CR><LF>]");
    EXPECT_EQ(lines.at(2), "  Record: [none]");
}

}  // namespace
}  // namespace host
