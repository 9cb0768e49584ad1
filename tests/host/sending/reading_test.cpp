// What the sample host reads in the records of sessions and part formats, whole or in part.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "sending/part_format.h"
#include "sending/session.h"
#include "wynconfig/dataset.h"

namespace host {
namespace {

using std::chrono::milliseconds;
using wynconfig::Dataset;
using Rows = std::vector<wynconfig::DataRow>;

void fill(Dataset& record, const std::string& type, const Rows& rows) {
    record.Create(type, "SAMPLE", "", {"Element", "Data"});
    record.SetKey("Element");
    for (const wynconfig::DataRow& row : rows) record.AddRow(row);
}

Session sessionOf(const Rows& rows) {
    Dataset record;
    fill(record, "MORAM", rows);
    return readSession(record);
}

PartFormat formatOf(const Rows& rows) {
    Dataset record;
    fill(record, "PARTFORMAT", rows);
    return readPartFormat(record);
}

TEST(SessionReading, TakesEveryKey) {
    const Session session = sessionOf({{"ProgramPath", "\"/opt/order desk\""},
                                       {"CommandLineArgs", "/quiet"},
                                       {"ReverseList", "true"},
                                       {"AutoResize", "true"},
                                       {"Orientation", "right"},
                                       {"FormatCount", "2"},
                                       {"FORMAT1", "ONE"},
                                       {"FORMAT2", "TWO"},
                                       {"WindowTitleSearchType", "starts with"},
                                       {"WindowClassSearchType", "matches"},
                                       {"WindowTitle", "Job"},
                                       {"WindowClass", "Frame"},
                                       {"DisableProgramLaunch", "true"},
                                       {"WindowTitleClassDelay", "5"},
                                       {"ProgramLaunchDelay", "2.5"},
                                       {"WindowTitleCaseSensitive", "true"},
                                       {"WindowClassCaseSensitive", "false"},
                                       {"PartFormat", "THREE"},
                                       {"FileName", "list.txt"},
                                       {"FileFolder", "/lists"},
                                       {"FileAction", "Append"},
                                       {"WriteFileOnly", "true"}});
    EXPECT_EQ(session.name, "SAMPLE");
    EXPECT_EQ(session.programPath, "\"/opt/order desk\"");
    EXPECT_EQ(session.commandLineArgs, "/quiet");
    EXPECT_TRUE(session.reverseList);
    EXPECT_TRUE(session.autoResize);
    EXPECT_EQ(session.orientation, "right");
    EXPECT_EQ(session.formats, (std::vector<std::string>{"ONE", "TWO"}));
    EXPECT_EQ(session.window.titleMatch, "starts with");
    EXPECT_EQ(session.window.classMatch, "matches");
    EXPECT_EQ(session.window.title, "Job");
    EXPECT_EQ(session.window.windowClass, "Frame");
    EXPECT_TRUE(session.launchDisabled);
    EXPECT_EQ(session.window.delay, "5");
    EXPECT_EQ(launchDelay(session), milliseconds(2500));
    EXPECT_TRUE(session.window.titleCaseSensitive);
    EXPECT_FALSE(session.window.classCaseSensitive);
    EXPECT_EQ(session.fileFormat, "THREE");
    EXPECT_EQ(session.fileName, "list.txt");
    EXPECT_EQ(session.fileFolder, "/lists");
    EXPECT_TRUE(session.append);
    EXPECT_TRUE(session.writeFileOnly);
}

TEST(SessionReading, OfNoRowsGivesEmptyTextsAndSwitchesThatAreOff) {
    const Session session = sessionOf({});
    EXPECT_EQ(session.programPath + session.commandLineArgs, "");
    EXPECT_FALSE(session.reverseList || session.autoResize || session.launchDisabled);
    EXPECT_FALSE(session.append || session.writeFileOnly);
    EXPECT_TRUE(session.formats.empty());
    EXPECT_EQ(session.orientation, "left");
    EXPECT_EQ(session.window.titleMatch, "contains");
    EXPECT_EQ(session.fileFormat + session.fileName + session.fileFolder, "");
    EXPECT_EQ(launchDelay(session), milliseconds(0));
    EXPECT_TRUE(remarksOn(session).empty());
}

TEST(SessionReading, TakesOnlyTheExactWords) {
    const Session session = sessionOf({{"ReverseList", "True"},
                                       {"DisableProgramLaunch", "1"},
                                       {"WriteFileOnly", "yes"},
                                       {"FileAction", "append"},
                                       {"Orientation", "Top"},
                                       {"WindowTitleSearchType", "Matches"}});
    EXPECT_FALSE(session.reverseList || session.launchDisabled || session.writeFileOnly);
    EXPECT_FALSE(session.append);
    EXPECT_EQ(session.orientation, "left");
    EXPECT_EQ(session.window.titleMatch, "contains");
}

TEST(SessionReading, CountsItsFormatsByFormatCount) {
    const auto formats = [](const std::string& count) {
        return sessionOf({{"FormatCount", count}, {"FORMAT1", "ONE"}, {"FORMAT3", "THREE"}})
            .formats;
    };
    EXPECT_EQ(formats("1"), (std::vector<std::string>{"ONE"}));
    EXPECT_EQ(formats("3"), (std::vector<std::string>{"ONE", "THREE"}));
    EXPECT_EQ(formats("999999999"), (std::vector<std::string>{"ONE", "THREE"}));
    EXPECT_TRUE(formats("0").empty());
    EXPECT_TRUE(formats("some").empty());
}

TEST(SessionReading, TakesTheNoneEntryOfAnyLanguageAsNoFormat) {
    EXPECT_EQ(sessionOf({{"PartFormat", "<None>"}}).fileFormat, "");
    EXPECT_EQ(sessionOf({{"PartFormat", "<Keines>"}}).fileFormat, "");
}

TEST(SessionReading, WaitsOnlyForANumberOfSecondsFromZeroUp) {
    const auto delay = [](const std::string& text) {
        return launchDelay(sessionOf({{"ProgramLaunchDelay", text}}));
    };
    EXPECT_EQ(delay("7"), milliseconds(7000));
    EXPECT_EQ(delay("0"), milliseconds(0));
    EXPECT_EQ(delay("-5"), milliseconds(0));
    EXPECT_EQ(delay("soon"), milliseconds(0));
    EXPECT_EQ(delay("1e9"), milliseconds(3600000));
}

TEST(SessionReading, RemarksOnADelayThatItDoesNotTakeAtItsWord) {
    const auto remarks = [](const std::string& text) {
        return remarksOn(sessionOf({{"ProgramLaunchDelay", text}}));
    };
    EXPECT_TRUE(remarks("2.5").empty());
    ASSERT_EQ(remarks("soon").size(), 1U);
    EXPECT_NE(remarks("soon").front().find("\"soon\" is no number"), std::string::npos);
    EXPECT_EQ(remarks("-5").size(), 1U);
    ASSERT_EQ(remarks("1e9").size(), 1U);
    EXPECT_NE(remarks("1e9").front().find("hour"), std::string::npos);
}

TEST(SessionReading, TellsWhatThisHostDoesNotActOn) {
    const auto facts = furtherFacts(sessionOf({{"WindowTitle", "Job"},
                                               {"WindowTitleSearchType", "starts with"},
                                               {"WindowTitleCaseSensitive", "true"},
                                               {"WindowTitleClassDelay", "5"},
                                               {"Orientation", "top"},
                                               {"AutoResize", "true"}}));
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"Window title", "starts with \"Job\", case counts"},
        {"Window class", "any"},
        {"Window search delay", "5"},
        {"Orientation", "top"},
        {"Automatic resize", "yes"},
    };
    EXPECT_EQ(facts, expected);
}

TEST(PartFormatReading, TakesEveryKey) {
    const PartFormat format = formatOf({{"Header", "h"},
                                        {"Record", "r"},
                                        {"Separator", "s"},
                                        {"Trailer", "t"},
                                        {"FormatPartNumber", "true"},
                                        {"PartFieldLength", "1"},
                                        {"PartAlignment", "left"},
                                        {"PartPadCharacter", "a"},
                                        {"FormatQty", "true"},
                                        {"QtyFieldLength", "2"},
                                        {"QtyAlignment", "right"},
                                        {"QtyPadCharacter", "b"},
                                        {"FormatDesc", "true"},
                                        {"DescFieldLength", "3"},
                                        {"DescAlignment", "left"},
                                        {"DescPadCharacter", "c"},
                                        {"FormatVIN", "false"},
                                        {"VINFieldLength", "4"},
                                        {"VINAlignment", "right"},
                                        {"VINPadCharacter", "d"},
                                        {"MaxRecords", "9"}});
    EXPECT_EQ(format.name, "SAMPLE");
    EXPECT_EQ(format.header + format.record + format.separator + format.trailer, "hrst");
    EXPECT_TRUE(format.part.on && format.quantity.on && format.description.on);
    EXPECT_FALSE(format.vin.on);
    EXPECT_EQ(fieldLength(format.part), 1);
    EXPECT_EQ(fieldLength(format.quantity), 2);
    EXPECT_EQ(fieldLength(format.description), 3);
    EXPECT_FALSE(fieldLength(format.vin).has_value());
    EXPECT_EQ(format.vin.length, "4");
    EXPECT_TRUE(!format.part.right && format.quantity.right);
    EXPECT_TRUE(!format.description.right && format.vin.right);
    EXPECT_EQ(format.part.pad + format.quantity.pad + format.description.pad + format.vin.pad,
              "abcd");
    EXPECT_EQ(recordLimit(format), 9);
    EXPECT_TRUE(remarksOn(format).empty());
}

TEST(PartFormatReading, TakesNumbersOfFullWidth) {
    const PartFormat format = formatOf(
        {{"FormatPartNumber", "True"}, {"PartFieldLength", "２０"}, {"MaxRecords", "　９"}});
    EXPECT_EQ(fieldLength(format.part), 20);
    EXPECT_EQ(recordLimit(format), 9);
    EXPECT_TRUE(remarksOn(format).empty());
}

TEST(PartFormatReading, OfNoRowsLaysNothingOut) {
    const PartFormat format = formatOf({});
    EXPECT_EQ(format.header + format.record + format.separator + format.trailer, "");
    EXPECT_FALSE(format.part.on || format.quantity.on || format.description.on || format.vin.on);
    EXPECT_TRUE(format.part.right && format.vin.right);
    EXPECT_FALSE(recordLimit(format).has_value());
}

TEST(PartFormatReading, ReadsFlagsAndAlignmentsAsTheEditorShowsThem) {
    const PartFormat format = formatOf({{"FormatPartNumber", "False"},
                                        {"PartFieldLength", "3"},
                                        {"PartAlignment", "Right"},
                                        {"FormatQty", "false"}});
    EXPECT_TRUE(format.part.on);
    EXPECT_FALSE(format.part.right);
    EXPECT_FALSE(format.quantity.on);
}

TEST(PartFormatReading, RemarksOnNumbersThatAreNone) {
    const auto remarks = remarksOn(formatOf({{"FormatPartNumber", "true"},
                                             {"PartFieldLength", "wide"},
                                             {"FormatQty", "false"},
                                             {"QtyFieldLength", "abc"},
                                             {"MaxRecords", "0"}}));
    ASSERT_EQ(remarks.size(), 2U);
    EXPECT_EQ(
        remarks[0],
        "SAMPLE: the field length \"wide\" is no number from 1 up, so part numbers go over as "
        "they are.");
    EXPECT_EQ(remarks[1],
              "SAMPLE: the maximum of records \"0\" is no number from 1 up, so there is no limit.");
}

}  // namespace
}  // namespace host
