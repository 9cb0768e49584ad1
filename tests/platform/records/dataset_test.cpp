// The record class: its operations, and that whatever is saved loads again, from a document and
// from a file.
#include "wynconfig/dataset.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "support/raised.h"
#include "support/rows.h"
#include "support/strange_texts.h"

namespace wynconfig {
namespace {

const std::array<std::string, 2> kColumns{"Element", "Data"};

/// What a record shows of itself.
struct Seen {
    std::string type;
    std::string name;
    std::vector<DataRow> rows;
    bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& record, std::ostream* out) {
    *out << record.type << " " << ::testing::PrintToString(record.name) << " "
         << ::testing::PrintToString(record.rows);
}

Seen seen(const Dataset& record) {
    return {record.Type(), record.Name(), {record.Rows().begin(), record.Rows().end()}};
}

void loadText(Dataset& record, const std::string& xml) {
    Document document;
    ASSERT_TRUE(document.loadXML(xml));
    record.Load(document, 0);
}

/// A record with two rows.
void fill(Dataset& record) {
    record.Create("MORAM", "MINE", "/store/MORAM\\", kColumns);
    record.SetKey("Element", 3);
    record.AddRow({"ProgramPath", "/programs/parts.exe"});
    record.AddRow({"ReverseList", "true"});
}

class Record : public ::testing::Test {
  protected:
    void SetUp() override {
        memory->makeFolder("/store");
        setFileSystem(&disk);
    }
    void TearDown() override { setFileSystem(nullptr); }

    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    FaultyFileSystem disk{*memory};
    const std::string path = "/store/MINE.vla";
    const ItemPath file{"/store/", "MINE.vla"};
    Dataset record;
};

TEST_F(Record, IsEmptyAtFirst) {
    EXPECT_EQ(seen(record), (Seen{"", "", {}}));
    EXPECT_EQ(record.Folder(), "");
}

TEST_F(Record, CreateMakesItEmptyAndTouchesNoFile) {
    fill(record);
    record.Create("PARTFORMAT", "OTHER", "/elsewhere\\", kColumns);
    EXPECT_EQ(seen(record), (Seen{"PARTFORMAT", "OTHER", {}}));
    EXPECT_EQ(record.Folder(), "/elsewhere\\");
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Save), 0U);
    EXPECT_EQ(raisedBy([&] { record.GetRow("ReverseList"); }).number(), errc::NoSuchKey);
}

TEST_F(Record, SetKeyTakesAColumnAlone) {
    fill(record);
    EXPECT_NO_THROW(record.SetKey("Data", 3));
    EXPECT_EQ(raisedBy([&] { record.SetKey("element", 3); }).number(), errc::InvalidCall);
    EXPECT_NE(xmlOf(record).find(" key=\"Data\""), std::string::npos);
}

TEST_F(Record, AddRowAppends) {
    fill(record);
    record.AddRow({"Orientation", ""});
    EXPECT_EQ(record.Rows().back(), (DataRow{"Orientation", ""}));
    EXPECT_EQ(record.GetRow("Orientation"), (DataRow{"Orientation", ""}));
}

TEST_F(Record, AddRowOfAPresentKeyRaisesAndChangesNothing) {
    fill(record);
    const Seen before = seen(record);
    const Error error = raisedBy([&] { record.AddRow({"ReverseList", "false"}); });
    EXPECT_EQ(error.number(), errc::DuplicateKey);
    EXPECT_EQ(error.description(), "The record has a row \"ReverseList\" already.");
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, KeysDifferByCaseAndBlanks) {
    for (const std::string key : {"a", "A", " a", "a ", "\u00E9", "e\u0301", ""})
        record.AddRow({key, "of " + key});
    EXPECT_EQ(record.Rows().size(), 7U);
    EXPECT_EQ(record.GetRow("A")[1], "of A");
    EXPECT_EQ(record.GetRow("a ")[1], "of a ");
    EXPECT_EQ(record.GetRow("")[1], "of ");
}

TEST_F(Record, ClearRowsLeavesTypeNameAndFolder) {
    fill(record);
    record.ClearRows();
    EXPECT_EQ(seen(record), (Seen{"MORAM", "MINE", {}}));
    EXPECT_EQ(record.Folder(), "/store/MORAM\\");
    EXPECT_NO_THROW(record.AddRow({"ReverseList", "false"}));
}

TEST_F(Record, DeleteRowRemovesThatRowAlone) {
    fill(record);
    record.DeleteRow("ProgramPath");
    EXPECT_EQ(seen(record).rows, (std::vector<DataRow>{{"ReverseList", "true"}}));
    record.AddRow({"ProgramPath", "again"});
    EXPECT_EQ(record.GetRow("ProgramPath")[1], "again");
    EXPECT_EQ(record.Rows().back()[0], "ProgramPath");
}

TEST_F(Record, DeleteRowOfAnAbsentKeyRaisesAndLeavesTheRows) {
    fill(record);
    const Seen before = seen(record);
    const Error error = raisedBy([&] { record.DeleteRow("reverselist"); });
    EXPECT_EQ(error.number(), errc::NoSuchKey);
    EXPECT_EQ(error.description(), "The record has no row \"reverselist\".");
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, GetRowGivesACopy) {
    fill(record);
    DataRow row = record.GetRow("ReverseList");
    row[1] = "changed";
    EXPECT_EQ(record.GetRow("ReverseList")[1], "true");
}

TEST_F(Record, GetRowOfAnAbsentKeyRaisesAndLeavesTheCallersRow) {
    fill(record);
    DataRow row = record.GetRow("ReverseList");
    const Error error = raisedBy([&] { row = record.GetRow("Orientation"); });
    EXPECT_EQ(error.number(), errc::NoSuchKey);
    EXPECT_EQ(error.description(), "The record has no row \"Orientation\".");
    EXPECT_EQ(row[1], "true");
}

TEST_F(Record, UpdateRowReplacesTheDataInItsPlace) {
    fill(record);
    record.UpdateRow({"ProgramPath", "ignored"}, {"ProgramPath", "new"});
    EXPECT_EQ(seen(record).rows,
              (std::vector<DataRow>{{"ProgramPath", "new"}, {"ReverseList", "true"}}));
}

TEST_F(Record, UpdateRowMayGiveTheRowAnotherKey) {
    fill(record);
    record.UpdateRow({"ProgramPath", ""}, {"Orientation", "top"});
    EXPECT_EQ(record.GetRow("Orientation")[1], "top");
    EXPECT_EQ(raisedBy([&] { record.GetRow("ProgramPath"); }).number(), errc::NoSuchKey);
    EXPECT_NO_THROW(record.AddRow({"ProgramPath", "free again"}));
    record.DeleteRow("Orientation");
    EXPECT_EQ(record.Rows().size(), 2U);
}

TEST_F(Record, UpdateRowOfAnAbsentKeyRaises) {
    fill(record);
    const Seen before = seen(record);
    const DataRow row{"Orientation", "top"};
    EXPECT_EQ(raisedBy([&] { record.UpdateRow(row, row); }).number(), errc::NoSuchKey);
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, UpdateRowToTheKeyOfAnotherRowRaises) {
    fill(record);
    const Seen before = seen(record);
    const Error error = raisedBy([&] {
        record.UpdateRow({"ProgramPath", ""}, {"ReverseList", "x"});
    });
    EXPECT_EQ(error.number(), errc::DuplicateKey);
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, UpdateRowWithItsOwnRowIsFine) {
    fill(record);
    const Seen before = seen(record);
    record.UpdateRow(record.Rows().front(), record.Rows().front());
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, TakesRowsSavesAndLoadsWithoutCreate) {
    record.AddRow({"a", "b"});
    record.Save(file);
    Dataset loaded;
    loaded.Load(file, 0);
    EXPECT_EQ(seen(loaded), (Seen{"", "", {{"a", "b"}}}));
    EXPECT_EQ(xmlOf(loaded), xmlOf(record));
    EXPECT_NE(xmlOf(record).find("<column>Element</column>"), std::string::npos);
    EXPECT_NE(xmlOf(record).find("<column>Data</column>"), std::string::npos);
    EXPECT_NE(xmlOf(record).find(" key=\"Element\""), std::string::npos);
}

TEST_F(Record, WithoutRowsIsAValidStoredForm) {
    record.Create("MORAM", "MORAM", "/store/", kColumns);
    record.SetKey("Element", 3);
    record.Save(file);
    Dataset loaded;
    fill(loaded);
    loaded.Load(file, 0);
    EXPECT_EQ(seen(loaded), (Seen{"MORAM", "MORAM", {}}));
}

TEST_F(Record, LoadsFromADocumentIntoAFreshObject) {
    fill(record);
    Dataset loaded;
    loadText(loaded, xmlOf(record));
    EXPECT_EQ(seen(loaded), seen(record));
    EXPECT_EQ(loaded.GetRow("ReverseList")[1], "true");
    EXPECT_EQ(raisedBy([&] { loaded.AddRow({"ReverseList", ""}); }).number(), errc::DuplicateKey);
}

TEST_F(Record, DocumentAndFileHoldTheSameText) {
    fill(record);
    record.Save(file);
    EXPECT_EQ(memory->read(file), xmlOf(record));
}

TEST_F(Record, LoadReplacesTheWholeContentEachTime) {
    fill(record);
    Dataset other;
    other.Create("PARTFORMAT", "OTHER", "", kColumns);
    other.AddRow({"ReverseList", "of the other"});
    loadText(record, xmlOf(other));
    EXPECT_EQ(seen(record), seen(other));
    loadText(record, xmlOf(other));
    EXPECT_EQ(seen(record), seen(other));
}

TEST_F(Record, OwnTextLoadsIntoItself) {
    fill(record);
    const Seen before = seen(record);
    loadText(record, xmlOf(record));
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, SavesUnderTheNewNameAfterARename) {
    fill(record);
    record.Save(file);
    Dataset loaded;
    loaded.Load(path, 0);
    loaded.setName("YOURS");
    loaded.Save("/store/YOURS.vla");
    Dataset again;
    again.Load("/store/YOURS.vla", 0);
    EXPECT_EQ(again.Name(), "YOURS");
    EXPECT_EQ(seen(again).rows, seen(record).rows);
    again.Load(path, 0);
    EXPECT_EQ(again.Name(), "MINE");
}

TEST_F(Record, RenameAndFolderStayInMemory) {
    fill(record);
    record.Save(file);
    const std::string before = memory->read(file);
    record.setName("YOURS");
    record.setFolder("/elsewhere\\");
    EXPECT_EQ(memory->read(file), before);
    EXPECT_EQ(record.Folder(), "/elsewhere\\");
}

TEST_F(Record, SavesOverAnOldFile) {
    fill(record);
    record.Save(file);
    record.ClearRows();
    record.Save(file);
    Dataset loaded;
    loaded.Load(file);
    EXPECT_TRUE(loaded.Rows().empty());
}

TEST_F(Record, LoadOfAMissingFileRaisesAndKeepsTheContent) {
    fill(record);
    const Seen before = seen(record);
    const Error error = raisedBy([&] { record.Load("/store/GONE.vla", 0); });
    EXPECT_EQ(error.number(), errc::FileNotFound);
    EXPECT_EQ(error.description(), "The file /store/GONE.vla was not found.");
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, LoadOfADamagedFileRaisesAndKeepsTheContent) {
    fill(record);
    record.Save(file);
    const Seen before = seen(record);
    disk.failOn(FaultyFileSystem::Operation::Read);
    EXPECT_EQ(raisedBy([&] { record.Load(file, 0); }).number(), errc::FileAccess);
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, LoadOfAFreshDocumentRaises) {
    fill(record);
    const Seen before = seen(record);
    const Error error = raisedBy([&] { record.Load(Document(), 0); });
    EXPECT_EQ(error.number(), errc::BadRecord);
    EXPECT_TRUE(error.description().starts_with(
        "The XML text holds no record: it is not well-formed XML ("))
        << error.description();
    EXPECT_EQ(seen(record), before);
}

TEST_F(Record, FailedSaveLeavesTheOldFileAndTheRecord) {
    fill(record);
    record.Save(file);
    const std::string before = memory->read(file);
    record.AddRow({"Orientation", "top"});
    disk.failOn(FaultyFileSystem::Operation::Save);
    EXPECT_EQ(raisedBy([&] { record.Save(file); }).number(), errc::FileAccess);
    EXPECT_EQ(memory->read(file), before);
    EXPECT_EQ(record.Rows().size(), 3U);
}

TEST_F(Record, SaveToAMissingFolderOrOntoAFolderRaises) {
    fill(record);
    EXPECT_EQ(raisedBy([&] { record.Save("/nowhere/MINE.vla"); }).number(), errc::FileAccess);
    memory->makeFolder("/store/TAKEN.vla");
    EXPECT_EQ(raisedBy([&] { record.Save("/store/TAKEN.vla"); }).number(), errc::FileAccess);
    EXPECT_EQ(raisedBy([&] { record.Load("/store/TAKEN.vla"); }).number(), errc::FileNotFound);
}

TEST_F(Record, ANameCanNotLeadOutOfItsFolder) {
    memory->makeFolder("/store/MORAM");
    fill(record);
    record.Save("/store/X.vla");
    const std::string before = memory->read({"/store/", "X.vla"});
    record.ClearRows();
    for (const std::string name : {"../X", "..\\X", "/store/X"}) {
        const ItemPath out = ItemPath::item("/store/MORAM\\", name);
        EXPECT_EQ(raisedBy([&] { record.Save(out); }).number(), errc::FileAccess) << name;
        EXPECT_EQ(raisedBy([&] { record.Load(out); }).number(), errc::FileNotFound) << name;
    }
    EXPECT_EQ(memory->read({"/store/", "X.vla"}), before);
}

TEST_F(Record, KeepsAThousandRowsInTheirOrder) {
    for (int i = 0; i < 1000; ++i)
        record.AddRow({"KEY" + std::to_string(i), std::string(static_cast<std::size_t>(i), 'x')});
    record.Save(file);
    Dataset loaded;
    loaded.Load(file);
    EXPECT_EQ(seen(loaded), seen(record));
    for (int i = 0; i < 1000; i += 2) loaded.DeleteRow("KEY" + std::to_string(i));
    EXPECT_EQ(loaded.Rows().size(), 500U);
    EXPECT_EQ(loaded.GetRow("KEY999")[1].size(), 999U);
    EXPECT_THROW(loaded.GetRow("KEY998"), Error);
}

TEST_F(Record, KeepsTextsOfAMegabyte) {
    std::string text;
    while (text.size() < (1U << 20)) text += "<部品 & \"parts\"> \r\n_x0041_\t";
    record.AddRow({"long", text});
    record.AddRow({"blanks", std::string(1U << 20, ' ')});
    record.AddRow({"controls", std::string(1U << 20, '\x01')});
    record.Save(file);
    Dataset loaded;
    loaded.Load(file);
    EXPECT_EQ(seen(loaded), seen(record));
}

TEST_F(Record, KeepsNamesOf32768Characters) {
    std::string name;
    for (int i = 0; i < 32768; ++i) name += "é";
    record.setName(name);
    record.AddRow({name, name});
    Dataset loaded;
    loadText(loaded, xmlOf(record));
    EXPECT_EQ(loaded.Name(), name);
    EXPECT_EQ(loaded.GetRow(name)[1], name);
}

TEST_F(Record, IsHeldByItsVariableAndSharedByNobody) {
    fill(record);
    Dataset copy;
    loadText(copy, xmlOf(record));
    copy.UpdateRow({"ReverseList", ""}, {"ReverseList", "false"});
    EXPECT_EQ(record.GetRow("ReverseList")[1], "true");
}

TEST(RecordDocument, KeepsTheAsyncFlag) {
    Document document;
    EXPECT_TRUE(document.async());
    document.setAsync(false);
    EXPECT_FALSE(document.async());
}

TEST(RecordDocument, IsEmptyAtFirstAndAfterIllFormedText) {
    Document document;
    EXPECT_EQ(document.xml(), "");
    EXPECT_TRUE(document.loadXML("<a/>"));
    EXPECT_EQ(document.xml(), "<a/>");
    EXPECT_FALSE(document.loadXML("<a>"));
    EXPECT_EQ(document.xml(), "");
    EXPECT_FALSE(document.loadXML(""));
}

TEST(RecordDocument, TakesWellFormedTextThatIsNoRecord) {
    Document document;
    ASSERT_TRUE(document.loadXML("<list><item/></list>"));
    Dataset record;
    record.AddRow({"a", "b"});
    const Error error = raisedBy([&] { record.Load(document, 0); });
    EXPECT_EQ(error.number(), errc::BadRecord);
    EXPECT_EQ(error.description(),
              "The XML text holds no record: its root element is not a dataset.");
    EXPECT_EQ(record.Rows().size(), 1U);
}

TEST(RecordDocument, IsReadUpToTheDeclarationsOfADocumentType) {
    Document document;
    EXPECT_TRUE(document.loadXML("<!DOCTYPE a><a/>"));
    EXPECT_TRUE(document.loadXML("<!DOCTYPE a SYSTEM \"file:///none\"><a/>"));
    EXPECT_FALSE(document.loadXML("<!DOCTYPE a><a>"));
    EXPECT_FALSE(document.loadXML("<!DOCTYPE a <a/>"));
    EXPECT_TRUE(document.loadXML("<!DOCTYPE a [<!ENTITY e \"x\">]><a>"));
    EXPECT_TRUE(document.loadXML("<!DOCTYPE a [ no declaration"));
}

TEST(RecordDocument, ReadsTextAsUtf8WhateverItDeclares) {
    Document document;
    ASSERT_TRUE(
        document.loadXML("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                         "<dataset name=\"部品\"><row key=\"ä\">é</row></dataset>"));
    Dataset record;
    record.Load(document, 0);
    EXPECT_EQ(record.Name(), "部品");
    EXPECT_EQ(record.GetRow("ä")[1], "é");
}

TEST(RecordDocument, IsReplacedByASave) {
    Document document;
    ASSERT_TRUE(document.loadXML("<a/>"));
    Dataset record;
    record.AddRow({"k", "v"});
    record.Save(document);
    EXPECT_EQ(document.xml(), xmlOf(record));
    EXPECT_TRUE(document.loadXML(document.xml()));
}

/// Any text in any place comes back byte for byte, by a document and by a file.
class StrangeTextInARecord : public ::testing::TestWithParam<StrangeText> {
  protected:
    void SetUp() override {
        memory->makeFolder("/store");
        setFileSystem(memory.get());
    }
    void TearDown() override { setFileSystem(nullptr); }

    void expectRoundTrip(const Dataset& record) {
        Dataset fromText;
        loadText(fromText, xmlOf(record));
        EXPECT_EQ(seen(fromText), seen(record));
        EXPECT_EQ(xmlOf(fromText), xmlOf(record));
        record.Save("/store/X.vla");
        Dataset fromFile;
        fromFile.Load("/store/X.vla");
        EXPECT_EQ(seen(fromFile), seen(record));
        EXPECT_EQ(xmlOf(fromFile), xmlOf(record));
    }

    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    const std::string text = GetParam().text;
};

TEST_P(StrangeTextInARecord, SurvivesAsData) {
    Dataset record;
    record.AddRow({"before", "x"});
    record.AddRow({"key", text});
    record.AddRow({"behind", "y"});
    expectRoundTrip(record);
}

TEST_P(StrangeTextInARecord, SurvivesAsKey) {
    Dataset record;
    record.AddRow({text, "data"});
    expectRoundTrip(record);
    EXPECT_EQ(record.GetRow(text)[1], "data");
}

TEST_P(StrangeTextInARecord, SurvivesAsName) {
    Dataset record;
    record.setName(text);
    expectRoundTrip(record);
}

TEST_P(StrangeTextInARecord, SurvivesAsTypeAndInTheColumns) {
    Dataset record;
    record.Create(text, "N", "", {text + "1", text + "2"});
    record.SetKey(text + "2", 3);
    expectRoundTrip(record);
}

TEST_P(StrangeTextInARecord, SurvivesEverywhereAtOnce) {
    Dataset record;
    record.Create(text, text, text, {text, text});
    record.AddRow({text, text});
    record.AddRow({text + "x", "x" + text});
    record.AddRow({"_x0041" + text, "_x" + text + "_"});
    expectRoundTrip(record);
}

INSTANTIATE_TEST_SUITE_P(Texts, StrangeTextInARecord, ::testing::ValuesIn(strangeTexts()),
                         [](const auto& each) { return each.param.what; });

}  // namespace
}  // namespace wynconfig
