// Reading a session and its part formats out of another store: the answer, the boxes, and what is
// in memory afterwards.
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "core/migration.h"
#include "services/list_and_name_helpers.h"
#include "support/exchange_desk.h"
#include "support/file_system_kit.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;
using ConfigGlobalModule::g_PartFormats;
using ConfigGlobalModule::g_Session;

using RowList = std::vector<std::pair<std::string, std::string>>;

const std::string kFormatsTag = "ConfigGlobalModule:MigratePartFormats";
const std::string kAddTag = "ConfigGlobalModule:AddFDToConfigPartFormats";

/// The other store lies below "/old/" and holds the formats "ONE", "TWO" and "THREE". Memory holds
/// the session "HELD" and the format "HELD FORMAT".
class Migration : public ExchangeDesk {
  protected:
    static inline const std::string kTag = "WYNConfig:MigrateSession";

    void SetUp() override {
        ExchangeDesk::SetUp();
        memory->makeFolder("/old");
        memory->makeFolder("/old/MORAM");
        memory->makeFolder("/old/PARTFORMAT");
        for (const std::string format : {"ONE", "TWO", "THREE"}) putOldFormat(format);
        g_Session->setName("HELD");
        addHostFormat("HELD FORMAT");
    }
    void putOldFormat(const std::string& format) {
        memory->save(ItemPath::item(kOldFormats, format), formatXml(format));
    }
    void putOldSession(const std::string& session, const RowList& rows) {
        Dataset record;
        record.Create("MORAM", session, "", session::kColumns);
        for (const auto& [key, value] : rows) record.AddRow({key, value});
        memory->save(ItemPath::item(kOldSessions, session), xmlOf(record));
    }
    /// A session with these formats.
    void putOldSessionOf(const std::string& session, const Names& formats) {
        memory->save(ItemPath::item(kOldSessions, session), sessionXml(session, formats));
    }
    /// Migrates while this many boxes come up; no file may be written.
    bool migrate(const std::string& session, int boxes = 0) {
        for (int i = 0; i < boxes; ++i) user().onBox();
        disk.resetCounts();
        const bool migrated = component.MigrateSession("/old/", session);
        expectNothingWritten();
        EXPECT_EQ(user().boxes().size(), static_cast<std::size_t>(boxes));
        return migrated;
    }
    /// Checks that all boxes tell a failure of the one procedure.
    void expectAllBoxesOf(const std::string& tag) {
        for (std::size_t i = 0; i < user().boxes().size(); ++i) expectFailureBox(i, tag);
    }
    void expectSessionKept() { EXPECT_EQ(g_Session->Name(), "HELD"); }
    void expectAllKept() {
        expectSessionKept();
        EXPECT_EQ(hostKeys(), (Names{"HELD FORMAT"}));
    }

    const std::string kOldSessions = "/old/MORAM\\";
    const std::string kOldFormats = "/old/PARTFORMAT\\";
};
ON_EVERY_VIEW(Migration);

TEST_P(Migration, BringsASessionAndItsFormatsIntoMemory) {
    putOldSessionOf("DESK", {"TWO", "ONE"});
    const auto before = g_Session;
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_NE(g_Session, before) << "the object itself is another one";
    EXPECT_EQ(before->Name(), "HELD");
    EXPECT_EQ(component.GetDatasetSessionData(), sessionXml("DESK", {"TWO", "ONE"}));
    EXPECT_EQ(component.GetDatasetFormatsData(), (Texts{formatXml("TWO"), formatXml("ONE")}));
}

TEST_P(Migration, WhatItReadCanBeEditedAndTakenBack) {
    putFullFormat("CSV");
    putOldSessionOf("DESK", {"TWO"});
    EXPECT_TRUE(migrate("DESK"));
    const auto script = onFormatTab([](User& u) {
        EXPECT_EQ(available(u), (Names{"CSV", "TWO"}));
        EXPECT_EQ(selectedNames(u), (Names{"TWO"}));
    });
    name = "desk";
    EXPECT_EQ(
        exchange(component.GetDatasetSessionData(), component.GetDatasetFormatsData(), script), 0);
    EXPECT_EQ(name, "DESK");
    EXPECT_EQ(rowsBack(), fullRows({"TWO"}));
}

TEST_P(Migration, NeedsNeitherTheStoreNorAResourceManager) {
    ConfigGlobalModule::reset();
    putOldSessionOf("DESK", {"ONE"});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(g_Session->Name(), "DESK");
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
    EXPECT_EQ(ConfigGlobalModule::g_SessionFolder, "");
    EXPECT_EQ(ConfigGlobalModule::g_PartFormatFolder, "");
}

TEST_P(Migration, LeavesTheModeAndTheStoreAsTheyAre) {
    putOldSessionOf("DESK", {"ONE"});
    for (const bool mode : {false, true}) {
        g_DatasetMode = mode;
        EXPECT_TRUE(migrate("DESK"));
        EXPECT_EQ(g_DatasetMode, mode);
        EXPECT_FALSE(migrate("GONE"));
        EXPECT_EQ(g_DatasetMode, mode);
    }
    EXPECT_EQ(ConfigGlobalModule::g_SessionFolder, sessionFolder);
    EXPECT_EQ(ConfigGlobalModule::g_PartFormatFolder, formatFolder);
    EXPECT_TRUE(sessionFiles().empty());
    EXPECT_TRUE(formatFiles().empty());
}

TEST_P(Migration, ReadsTheOtherStoreNotTheOneInUse) {
    auto other = fullFormat("ONE");
    other->UpdateRow({"Header", ""}, {"Header", "of the store in use"});
    other->Save(ItemPath::item(formatFolder, "ONE"));
    putFullSession("DESK", {"HERE ALONE"});
    putOldSessionOf("DESK", {"ONE"});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(formatsInMemory(), (Names{"ONE"}));
    EXPECT_EQ(headerOf(*g_PartFormats.Item("ONE")), "head of ONE");
}

TEST_P(Migration, MayReadTheStoreInUseItself) {
    putFullFormat("CSV");
    putFullSession("DESK", {"CSV"});
    const std::string session = sessionText("DESK");
    disk.resetCounts();
    EXPECT_TRUE(component.MigrateSession("/store/", "DESK"));
    expectNothingWritten();
    EXPECT_EQ(component.GetDatasetSessionData(), session);
    EXPECT_EQ(formatsBack(), (Names{"CSV"}));
}

/// Every path below a folder, with its time of writing and, of a file, its content.
std::map<std::string, std::string> picture(const std::string& folder) {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        std::ostringstream seen;
        seen << fs::last_write_time(entry).time_since_epoch().count() << '\n';
        if (entry.is_regular_file()) seen << std::ifstream(entry.path()).rdbuf();
        all.emplace(entry.path().string(), seen.str());
    }
    return all;
}

TEST_P(Migration, WritesNothingToADisk) {
    const TemporaryFolder folder;
    const auto real = makeRealFileSystem();
    setFileSystem(real.get());
    const std::string root = folder.path() + "/";
    component.init(root);
    real->save(ItemPath::item(root + "MORAM\\", "GOOD"), sessionXml("GOOD", {"ONE"}));
    real->save(ItemPath::item(root + "MORAM\\", "LACKING"), sessionXml("LACKING", {"GONE"}));
    real->save(ItemPath::item(root + "MORAM\\", "BAD"), "<no record");
    real->save(ItemPath::item(root + "PARTFORMAT\\", "ONE"), formatXml("ONE"));
    const auto before = picture(folder.path());
    EXPECT_EQ(before.size(), 8U);
    EXPECT_TRUE(component.MigrateSession(root, "good"));
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
    EXPECT_FALSE(component.MigrateSession(root, "LACKING"));
    for (int i = 0; i < 3; ++i) user().onBox();
    EXPECT_TRUE(component.MigrateSession(root, "BAD"));
    EXPECT_EQ(picture(folder.path()), before);
    setFileSystem(&disk);
}

// Folders that are not there.

TEST_P(Migration, WithoutAFolderOfFormatsNothingHappens) {
    for (const std::string format : {"ONE", "TWO", "THREE"})
        memory->remove(ItemPath::item(kOldFormats, format));
    memory->makeFolder("/half");
    memory->makeFolder("/half/MORAM");
    memory->save(ItemPath::item("/half/MORAM\\", "DESK"), sessionXml("DESK", {}));
    disk.resetCounts();
    EXPECT_FALSE(component.MigrateSession("/half/", "DESK"));
    expectAllKept();
    EXPECT_EQ(reads(), 0U);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Migration, WithoutAFolderOfSessionsNothingHappens) {
    memory->makeFolder("/half");
    memory->makeFolder("/half/PARTFORMAT");
    EXPECT_FALSE(component.MigrateSession("/half/", "DESK"));
    expectAllKept();
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Migration, WithoutEitherFolderOrAnyRootNothingHappens) {
    memory->makeFolder("/bare");
    for (const std::string root : {"/bare/", "/nowhere/", "", "\\", "/old"}) {
        EXPECT_FALSE(component.MigrateSession(root, "DESK")) << root;
        expectAllKept();
    }
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Migration, AFileInThePlaceOfTheFormatsIsNoFolder) {
    memory->makeFolder("/half");
    memory->makeFolder("/half/MORAM");
    memory->save(ItemPath::of("/half/PARTFORMAT"), "a file");
    memory->save(ItemPath::item("/half/MORAM\\", "DESK"), sessionXml("DESK", {}));
    EXPECT_FALSE(component.MigrateSession("/half/", "DESK"));
    expectAllKept();
}

TEST_P(Migration, AnEmptyFolderOfFormatsCountsAsThere) {
    for (const std::string format : {"ONE", "TWO", "THREE"})
        memory->remove(ItemPath::item(kOldFormats, format));
    putOldSessionOf("DESK", {});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(g_Session->Name(), "DESK");
}

TEST_P(Migration, TakesABackslashBehindTheRootAsWell) {
    putOldSessionOf("DESK", {"ONE"});
    EXPECT_TRUE(component.MigrateSession("/old\\", "DESK"));
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
}

// Names.

TEST_P(Migration, AMissingSessionChangesNothing) {
    putOldSessionOf("DESK", {"ONE"});
    for (const std::string session : {"GONE", "", "DESK ", "DESK.vla", "*", "?ESK", "MORAM"}) {
        EXPECT_FALSE(migrate(session)) << session;
        expectAllKept();
    }
}

TEST_P(Migration, ASessionNamedInAnotherCaseIsFoundWhereFilesIgnoreCase) {
    putOldSessionOf("Desk", {"ONE"});
    EXPECT_TRUE(migrate("dESK"));
    EXPECT_EQ(g_Session->Name(), "Desk");
}

TEST_P(Migration, ANameThatWouldLeaveItsFolderIsNotFound) {
    putOldSessionOf("DESK", {"ONE"});
    for (const std::string session : {"..\\MORAM\\DESK", "../MORAM/DESK", "/old/MORAM/DESK"}) {
        EXPECT_FALSE(migrate(session)) << session;
        expectAllKept();
    }
    putOldSessionOf("ASTRAY", {"ONE", "..\\PARTFORMAT\\TWO"});
    EXPECT_FALSE(migrate("ASTRAY"));
    expectSessionKept();
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
}

TEST_P(Migration, FormatsAreFoundByNamesInAnyCaseAndKeptUnderCapitals) {
    putOldFormat("ÜBERSICHT");
    putOldSessionOf("DESK", {"one", "Two", "übersicht"});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO", "ÜBERSICHT"}));
    EXPECT_EQ(formatsInMemory(), (Names{"one", "Two", "übersicht"})) << "the rows stay as they are";
}

TEST_P(Migration, ANameThatStandsTwiceMovesToTheEnd) {
    putOldSessionOf("DESK", {"ONE", "TWO", "one", "THREE"});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(hostKeys(), (Names{"TWO", "ONE", "THREE"}));
}

/// Files that another program writes anew as soon as they were read.
class RestlessFiles : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;
    std::string next;  ///< what stands in a file from its first reading on

  protected:
    std::string readFile(const std::string& path) override {
        std::string content = FaultyFileSystem::readFile(path);
        if (path.ends_with("ONE.vla")) replaceFile(path, next);
        return content;
    }
};

TEST_P(Migration, OfANameThatStandsTwiceTheLaterReadingCounts) {
    RestlessFiles files(*memory);
    auto later = fullFormat("ONE");
    later->UpdateRow({"Header", ""}, {"Header", "of the later reading"});
    files.next = xmlOf(*later);
    putOldSessionOf("DESK", {"ONE", "TWO", "ONE"});
    setFileSystem(&files);
    EXPECT_TRUE(migrate("DESK"));
    setFileSystem(&disk);
    EXPECT_EQ(hostKeys(), (Names{"TWO", "ONE"}));
    EXPECT_EQ(headerOf(*g_PartFormats.Item("ONE")), "of the later reading");
}

TEST_P(Migration, ACommaInAFormatsNameCutsItInTwo) {
    putOldSessionOf("DESK", {"ONE,TWO"});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO"}));
}

TEST_P(Migration, AnEmptyNameAloneIsNoneAndAmongOthersIsMissing) {
    putOldSessionOf("ALONE", {""});
    EXPECT_TRUE(migrate("ALONE"));
    EXPECT_TRUE(hostKeys().empty());
    putOldSessionOf("AMONG", {"ONE", "", "TWO"});
    EXPECT_FALSE(migrate("AMONG"));
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
    EXPECT_EQ(g_Session->Name(), "ALONE");
}

// The count of formats.

TEST_P(Migration, ACountOfZeroGivesNoFormats) {
    putOldSession("DESK", {{"FormatCount", "0"}, {"FORMAT1", "ONE"}});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(g_Session->Name(), "DESK");
    EXPECT_TRUE(hostKeys().empty());
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(Migration, ACountBelowTheRowsLeavesTheOthersOut) {
    putOldSession("DESK", {{"FormatCount", "1"}, {"FORMAT1", "ONE"}, {"FORMAT2", "GONE"}});
    EXPECT_TRUE(migrate("DESK"));
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
}

TEST_P(Migration, TheCountIsReadAsANumberOfSixteenBits) {
    const RowList formats{{"FORMAT1", "ONE"}, {"FORMAT2", "TWO"}, {"FORMAT3", "THREE"}};
    const std::vector<std::pair<std::string, Names>> counts{{" 2 ", {"ONE", "TWO"}},
                                                            {"2.5", {"ONE", "TWO"}},
                                                            {"1.5", {"ONE", "TWO"}},
                                                            {"3e0", {"ONE", "TWO", "THREE"}},
                                                            {"-1", {}},
                                                            {"-32768", {}}};
    for (const auto& [count, expected] : counts) {
        RowList rows{{"FormatCount", count}};
        rows.insert(rows.end(), formats.begin(), formats.end());
        putOldSession("DESK", rows);
        EXPECT_TRUE(migrate("DESK")) << count;
        EXPECT_EQ(hostKeys(), expected) << count;
    }
}

TEST_P(Migration, ACountThatIsNoNumberOfSixteenBitsIsToldOnceAndGivesNoFormats) {
    for (const std::string count : {"", "two", "32768", "-32769", "1e9", "1 2"}) {
        putOldSession("DESK", {{"FormatCount", count}, {"FORMAT1", "ONE"}});
        user().finish();
        EXPECT_TRUE(migrate("DESK", 1)) << count;
        expectAllBoxesOf(kTag);
        EXPECT_EQ(g_Session->Name(), "DESK");
        EXPECT_TRUE(hostKeys().empty()) << count;
    }
}

TEST_P(Migration, AMissingCountIsToldTwiceAndGivesNoFormats) {
    putOldSession("DESK", {{"ProgramPath", "/programs/parts.exe"}, {"FORMAT1", "ONE"}});
    EXPECT_TRUE(migrate("DESK", 2));
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_EQ(user().boxes()[0].text, failureText(kTag, "The record has no row \"FormatCount\"."));
    EXPECT_EQ(user().boxes()[1].text, failureText(kTag, "No row has been read."));
    EXPECT_EQ(g_Session->Name(), "DESK");
    EXPECT_TRUE(hostKeys().empty());
}

// Rows of formats that are missing.

TEST_P(Migration, AMissingFormatRowIsToldAndRepeatsTheNameBeforeIt) {
    putOldSession("DESK", {{"FormatCount", "3"}, {"FORMAT1", "ONE"}, {"FORMAT3", "TWO"}});
    EXPECT_TRUE(migrate("DESK", 1));
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, failureText(kTag, "The record has no row \"FORMAT2\"."));
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO"}));
    EXPECT_EQ(g_Session->Name(), "DESK");
}

TEST_P(Migration, EachMissingFormatRowIsTold) {
    putOldSession("DESK", {{"FormatCount", "5"}, {"FORMAT1", "ONE"}, {"FORMAT3", "TWO"}});
    EXPECT_TRUE(migrate("DESK", 3));
    expectAllBoxesOf(kTag);
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO"}));
}

TEST_P(Migration, AMissingFirstFormatRowLooksForAFormatNamedLikeTheCount) {
    putOldSession("DESK", {{"FormatCount", "2"}, {"FORMAT2", "ONE"}});
    EXPECT_FALSE(migrate("DESK", 1));
    expectAllBoxesOf(kTag);
    expectSessionKept();
    EXPECT_TRUE(hostKeys().empty());
    putOldFormat("2");
    user().finish();
    EXPECT_TRUE(migrate("DESK", 1));
    EXPECT_EQ(hostKeys(), (Names{"2", "ONE"}));
}

// Files that are missing or can't be read.

TEST_P(Migration, AMissingFormatFileEndsItWithoutABox) {
    putOldSessionOf("DESK", {"ONE", "TWO", "GONE", "THREE"});
    EXPECT_FALSE(migrate("DESK"));
    expectSessionKept();
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO"})) << "those before it";
    putOldSessionOf("FIRST", {"GONE", "ONE"});
    EXPECT_FALSE(migrate("FIRST"));
    expectSessionKept();
    EXPECT_TRUE(hostKeys().empty());
}

TEST_P(Migration, AMalformedFormatFileEndsItBehindOneBoxOfItsOwnTag) {
    memory->save(ItemPath::item(kOldFormats, "BAD"), "<no record");
    putOldSessionOf("DESK", {"ONE", "BAD", "TWO"});
    EXPECT_FALSE(migrate("DESK", 1));
    expectAllBoxesOf(kFormatsTag);
    expectSessionKept();
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
}

TEST_P(Migration, AFormatFileThatCannotBeReadEndsItTheSameWay) {
    putOldSessionOf("DESK", {"ONE", "TWO"});
    disk.failOn(FaultyFileSystem::Operation::Read, "TWO");
    EXPECT_FALSE(migrate("DESK", 1));
    expectAllBoxesOf(kFormatsTag);
    EXPECT_EQ(hostKeys(), (Names{"ONE"}));
}

TEST_P(Migration, ASecondReadingOfANameThatFailsLeavesTheFirst) {
    putOldSessionOf("DESK", {"ONE", "TWO", "ONE"});
    disk.failOn(FaultyFileSystem::Operation::Read, "ONE", 1);
    EXPECT_FALSE(migrate("DESK", 1));
    EXPECT_EQ(hostKeys(), (Names{"ONE", "TWO"}));
}

TEST_P(Migration, AMalformedSessionFileIsToldThreeTimesAndStillCountsAsMigrated) {
    for (const std::string text : {"", "<no record", "<list/>"}) {
        memory->save(ItemPath::item(kOldSessions, "DESK"), text);
        addHostFormat("LEFT OVER");
        user().finish();
        EXPECT_TRUE(migrate("DESK", 3));
        expectAllBoxesOf(kTag);
        ASSERT_EQ(user().boxes().size(), 3U);
        EXPECT_EQ(user().boxes()[2].text, failureText(kTag, "No row has been read."));
        EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(Dataset()));
        EXPECT_TRUE(hostKeys().empty()) << "and the formats in memory are gone";
    }
}

TEST_P(Migration, ASessionFileThatCannotBeReadIsToldTheSameWay) {
    putOldSessionOf("DESK", {"ONE"});
    disk.failOn(FaultyFileSystem::Operation::Read, "DESK");
    EXPECT_TRUE(migrate("DESK", 3));
    expectAllBoxesOf(kTag);
    EXPECT_EQ(g_Session->Name(), "");
}

TEST_P(Migration, WithoutAResourceManagerItsBoxesAreEmpty) {
    component.InitResourceManager(nullptr);
    putOldSession("DESK", {});
    EXPECT_TRUE(migrate("DESK", 2));
    for (const SeenBox& box : user().boxes()) {
        EXPECT_EQ(box.text, "");
        EXPECT_EQ(box.style, 4112);
    }
}

// The steps that stand alone.

TEST_P(Migration, TheFormatsOfAnEmptyListAreNoneAndEmptyTheMemory) {
    EXPECT_TRUE(MigratePartFormats(kOldFormats, ""));
    EXPECT_TRUE(hostKeys().empty());
}

TEST_P(Migration, FormatsAreReadFromTheFolderAsGiven) {
    memory->makeFolder("/elsewhere");
    memory->save(ItemPath::item("/elsewhere/", "ONE"), formatXml("ANOTHER"));
    EXPECT_TRUE(MigratePartFormats("/elsewhere/", "one"));
    EXPECT_EQ(hostKeys(), (Names{"ONE"})) << "the key is that of the list";
    EXPECT_EQ(g_PartFormats.Item("ONE")->Name(), "ANOTHER") << "the name that of the record";
    EXPECT_FALSE(MigratePartFormats("/nowhere/", "ONE"));
    EXPECT_TRUE(hostKeys().empty());
}

TEST_P(Migration, BlanksInTheListBelongToTheNames) {
    putOldFormat(" PADDED");
    EXPECT_TRUE(MigratePartFormats(kOldFormats, "ONE, padded"));
    EXPECT_EQ(hostKeys(), (Names{"ONE", " PADDED"}));
    EXPECT_FALSE(MigratePartFormats(kOldFormats, "ONE, TWO"));
    EXPECT_FALSE(MigratePartFormats(kOldFormats, "ONE,"));
}

TEST_P(Migration, AFactoryFormatComesUnderItsKeyAsGivenAndInPlaceOfAnother) {
    putFullFormat("CSV");
    EXPECT_TRUE(AddFDToConfigPartFormats("csv"));
    const auto first = g_PartFormats.Item("CSV");
    EXPECT_TRUE(AddFDToConfigPartFormats("CSV"));
    EXPECT_NE(g_PartFormats.Item("csv"), first);
    EXPECT_EQ(hostKeys(), (Names{"HELD FORMAT", "CSV"}));
}

TEST_P(Migration, AMalformedFactoryFormatIsToldAndComesNot) {
    memory->save(ItemPath::item(formatFolder, "BAD"), "<no record");
    user().onBox();
    EXPECT_FALSE(AddFDToConfigPartFormats("BAD"));
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kAddTag);
    expectAllKept();
}

TEST_P(Migration, AFactoryNameThatWouldLeaveTheFolderIsNone) {
    memory->save(ItemPath::of("/store/OUTSIDE.vla"), formatXml("OUTSIDE"));
    EXPECT_FALSE(IsFactoryPartFormat("..\\OUTSIDE"));
    EXPECT_FALSE(IsFactorySession("../OUTSIDE"));
    EXPECT_FALSE(AddFDToConfigPartFormats("..\\OUTSIDE"));
    EXPECT_TRUE(user().boxes().empty());
    expectAllKept();
}

}  // namespace
}  // namespace wynconfig
