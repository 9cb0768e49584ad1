// Carrying a part format's new name, or its deletion, through the sessions that name it.
#include <filesystem>

#include "support/file_system_kit.h"
#include "support/format_desk.h"
#include "wynconfig/error.h"

namespace wynconfig {
namespace {

/// What the test for a last format says, and the session that it names.
struct LastFormat {
    bool isLast;
    std::string session;
    bool operator==(const LastFormat&) const = default;
};

class FormatWalkers : public FormatDesk {
  protected:
    static LastFormat checkForLast(const std::string& format) {
        frmMORAMConfig form;
        std::string session = "what stood here before";
        const bool isLast = form.CheckForLastPartNumberFormatInAllMORAMs(format, session);
        return {isLast, session};
    }
    static void carry(const std::string& oldName, const std::string& newName) {
        frmMORAMConfig form;
        form.UpdatePartNumberFormatsInAllMORAMs(oldName, newName);
    }
    static void carryDeletion(const std::string& name) { carry(name, ""); }
    /// The text of every session file by its name.
    std::map<std::string, std::string> allSessions() {
        std::map<std::string, std::string> all;
        for (const std::string& file : sessionFiles())
            all[file] = memory->read(ItemPath{sessionFolder, file});
        return all;
    }
    std::string nameIn(const std::string& session) { return sessionRecord(session)->Name(); }
};
ON_EVERY_VIEW(FormatWalkers);

TEST_P(FormatWalkers, TheFirstSessionOfTheListingWithTheFormatAloneIsNamed) {
    putSessionOf("B", {"X"});
    putSessionOf("C", {"X"});
    putSessionOf("A", {"Y"});
    disk.resetCounts();
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "B"}));
    EXPECT_EQ(reads(), 2U) << "the walk ends at the first such session";
    EXPECT_EQ(saves(), 0U);
}

TEST_P(FormatWalkers, TheSessionIsNamedAsItsFileIsSpelt) {
    putSessionOf("OTHER", {"X"});
    memory->save(ItemPath{sessionFolder, "mine.VLA"}, sessionText("OTHER"));
    memory->remove(ItemPath::item(sessionFolder, "OTHER"));
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "mine"}));
}

TEST_P(FormatWalkers, NoSessionIsNamedWhereTheFormatIsNowhereAlone) {
    putSessionOf("A", {"X", "Y"});
    putSessionOf("B", {"Y"});
    putSessionOf("C", Names{});
    putSessionOf("D", "0", {"X"});
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
}

TEST_P(FormatWalkers, ALastFormatIsComparedWithRegardToCase) {
    putSessionOf("A", {"csv"});
    EXPECT_EQ(checkForLast("CSV"), (LastFormat{false, ""}));
    EXPECT_EQ(checkForLast("csv"), (LastFormat{true, "A"}));
}

TEST_P(FormatWalkers, TheCountIsRoundedHalfToEven) {
    putSessionOf("HALF", "0.5", {"X"});
    putSessionOf("ONEANDAHALF", "1.5", {"X"});
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
    putSessionOf("ONE", "1.4", {"X"});
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "ONE"}));
}

TEST_P(FormatWalkers, AnEmptyStoreHasNoLastFormat) {
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
    ConfigGlobalModule::g_SessionFolder = "/nowhere\\";
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
}

TEST_P(FormatWalkers, SessionsWhoseRowsCannotBeReadArePassedOverInSilence) {
    putSession("A", {});
    putSessionOf("B", "many", {"X"});
    putSessionOf("C", "40000", {"X"});
    putSessionOf("D", "-1", {"X"});
    putSessionOf("E", "", {"X"});
    putSession("F", {{"FormatCount", "1"}, {"FORMAT2", "X"}});
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
    putSessionOf("G", {"X"});
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "G"}));
}

TEST_P(FormatWalkers, AMalformedSessionIsToldOnceAndTheTestGoesOn) {
    putSessionOf("A", {"Y"});
    putMalformedSession("B");
    putSessionOf("C", {"X"});
    user().onBox();
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "C"}));
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kCheckTag);
}

TEST_P(FormatWalkers, TheFileWritersFormatIsNoEntryOfTheList) {
    putSession("A", {{"FormatCount", "0"}, {"PartFormat", "X"}});
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
    carry("X", "Y");
    EXPECT_EQ(sessionRows("A").at("PartFormat"), "X");
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A").at("PartFormat"), "X");
}

TEST_P(FormatWalkers, ALastFormatIsFoundInMemoryModeToo) {
    putSessionOf("A", {"X"});
    ConfigGlobalModule::g_DatasetMode = true;
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "A"}));
}

TEST_P(FormatWalkers, ANewNameGoesIntoEverySessionThatHasTheOldOne) {
    putSessionOf("A", {"X", "Y", "Z"});
    putSessionOf("B", {"Y"});
    putSessionOf("C", {"Z", "X"});
    carry("Y", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "NEW", "Z"}));
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("C"), (Names{"Z", "X"}));
    EXPECT_EQ(countOf("A"), "3");
}

TEST_P(FormatWalkers, ARenameChangesNothingElseOfASession) {
    putFullSession("A", {"X", "Y"});
    Rows expected = sessionRows("A");
    expected["FORMAT1"] = "NEW";
    carry("X", "NEW");
    EXPECT_EQ(sessionRows("A"), expected);
    EXPECT_EQ(nameIn("A"), "A");
}

struct Deletion {
    std::string what;
    std::string deleted;
    Names left;
    std::string count;
};

TEST_P(FormatWalkers, ADeletionClosesTheGapAndLowersTheCount) {
    for (const Deletion& each : std::vector<Deletion>{{"first", "X", {"Y", "Z", "V"}, "3"},
                                                      {"second", "Y", {"X", "Z", "V"}, "3"},
                                                      {"last", "V", {"X", "Y", "Z"}, "3"}}) {
        putFullSession("A", {"X", "Y", "Z", "V"});
        Rows expected = sessionRows("A");
        carryDeletion(each.deleted);
        EXPECT_EQ(formatsOf("A"), each.left) << each.what;
        expected.erase("FORMAT4");
        expected["FormatCount"] = each.count;
        for (std::size_t i = 0; i < each.left.size(); ++i)
            expected["FORMAT" + std::to_string(i + 1)] = each.left[i];
        EXPECT_EQ(sessionRows("A"), expected) << each.what;
    }
}

TEST_P(FormatWalkers, ASessionMayLoseItsOnlyFormat) {
    putSessionOf("A", {"X"});
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A"), (Rows{{"FormatCount", "0"}}));
}

TEST_P(FormatWalkers, AFormatMayGoOnceNoSessionHasItAlone) {
    putSessionOf("A", {"X", "Y", "Z"});
    putSessionOf("B", {"X"});
    EXPECT_FALSE(checkForLast("Y").isLast);
    carryDeletion("Y");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Z"}));
    EXPECT_EQ(countOf("A"), "2");
    EXPECT_EQ(checkForLast("X"), (LastFormat{true, "B"}));
    putSessionOf("B", {"X", "V"});
    EXPECT_FALSE(checkForLast("X").isLast);
    carryDeletion("X");
    EXPECT_EQ(formatsOf("A"), (Names{"Z"}));
    EXPECT_EQ(formatsOf("B"), (Names{"V"}));
}

TEST_P(FormatWalkers, EachSessionIsReadAndWrittenOnceWithoutNeed) {
    putFullSession("A", {"X"});
    putFullSession("B", {"X", "Y"});
    putSession("C", {});
    const auto before = allSessions();
    for (const std::string newName : {"NEW", ""}) {
        disk.resetCounts();
        carry("NOWHERE", newName);
        EXPECT_EQ(reads(), 3U);
        EXPECT_EQ(saves(), 3U);
        EXPECT_EQ(allSessions(), before);
    }
}

TEST_P(FormatWalkers, TheSameNameOnBothSidesChangesNoRow) {
    putFullSession("A", {"X", "Y"});
    const auto before = allSessions();
    disk.resetCounts();
    carry("X", "X");
    EXPECT_EQ(saves(), 1U);
    EXPECT_EQ(allSessions(), before);
}

TEST_P(FormatWalkers, InMemoryModeNoFileIsTouched) {
    putSessionOf("A", {"X", "Y"});
    ConfigGlobalModule::g_DatasetMode = true;
    disk.resetCounts();
    carry("X", "NEW");
    carryDeletion("X");
    EXPECT_EQ(reads() + saves(), 0U);
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Y"}));
}

TEST_P(FormatWalkers, NamesInRowsAreComparedWithRegardToCase) {
    putSessionOf("A", {"csv", "CSV"});
    carry("CSV", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"csv", "NEW"}));
    carry("csv", "LOW");
    EXPECT_EQ(formatsOf("A"), (Names{"LOW", "NEW"}));
    putSessionOf("A", {"plain", "X"});
    carryDeletion("PLAIN");
    EXPECT_EQ(formatsOf("A"), (Names{"plain", "X"}));
}

TEST_P(FormatWalkers, OfANameThatStandsTwiceOnlyTheFirstRowIsHandled) {
    putSessionOf("A", {"X", "Y", "X"});
    carry("X", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"NEW", "Y", "X"}));
    putSessionOf("A", {"X", "Y", "X"});
    carryDeletion("X");
    EXPECT_EQ(formatsOf("A"), (Names{"Y", "X"}));
    EXPECT_EQ(countOf("A"), "2");
}

TEST_P(FormatWalkers, SessionsWithoutAUsableCountAreWrittenAsTheyWere) {
    putSession("A", {{"FORMAT1", "X"}});
    putSessionOf("B", "many", {"X"});
    putSessionOf("C", "", {"X"});
    putSessionOf("D", "32768", {"X"});
    putSessionOf("E", "1e400", {"X"});
    putSessionOf("F", "-2", {"X"});
    putSessionOf("G", "0", {"X"});
    const auto before = allSessions();
    for (const std::string newName : {"NEW", ""}) {
        disk.resetCounts();
        carry("X", newName);
        EXPECT_EQ(saves(), 7U);
        EXPECT_EQ(allSessions(), before);
    }
}

TEST_P(FormatWalkers, ACountBeyondTheRowsStopsAtTheFirstAbsentRow) {
    putSessionOf("A", "5", {"X", "Y"});
    carry("Z", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Y"}));
    carry("Y", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "NEW"}));
}

TEST_P(FormatWalkers, ADeletionUnderACountBeyondTheRowsStopsHalfway) {
    putSessionOf("A", "5", {"X", "Y", "Z"});
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A"),
              (Rows{{"FormatCount", "5"}, {"FORMAT1", "Y"}, {"FORMAT2", "Z"}, {"FORMAT3", "Z"}}));
}

TEST_P(FormatWalkers, RowsBeyondTheCountAreNotLookedAt) {
    putSessionOf("A", "2", {"X", "Y", "Z"});
    carry("Z", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Y", "Z"}));
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A"), (Rows{{"FormatCount", "1"}, {"FORMAT1", "Y"}, {"FORMAT3", "Z"}}));
}

TEST_P(FormatWalkers, RowsBehindAGapAreNotReached) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"FormatCount", "3"}, {"FORMAT1", "X"}, {"FORMAT3", "Z"}};
    putSession("A", rows);
    const Rows before = sessionRows("A");
    carry("Z", "NEW");
    EXPECT_EQ(sessionRows("A"), before);
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A"), before);
    carry("X", "NEW");
    EXPECT_EQ(sessionRows("A").at("FORMAT1"), "NEW");
}

TEST_P(FormatWalkers, ABrokenCountIsRoundedHalfToEvenAndWrittenBackWhole) {
    putSessionOf("A", "2.5", {"X", "Y", "Z"});
    carry("Z", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Y", "Z"}));
    carryDeletion("X");
    EXPECT_EQ(sessionRows("A"), (Rows{{"FormatCount", "1"}, {"FORMAT1", "Y"}, {"FORMAT3", "Z"}}));
}

TEST_P(FormatWalkers, AMalformedSessionTakesTheRecordOfTheOneBefore) {
    putFullSession("A", {"X", "Y"});
    putMalformedSession("B");
    putSessionOf("C", {"X"});
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kUpdateTag);
    EXPECT_EQ(formatsOf("A"), (Names{"NEW", "Y"}));
    EXPECT_EQ(sessionText("B"), sessionText("A"));
    EXPECT_EQ(nameIn("B"), "A");
    EXPECT_EQ(formatsOf("C"), (Names{"NEW"}));
}

TEST_P(FormatWalkers, ARecordThatServesTwiceLosesADoubleNameTwice) {
    putSessionOf("A", {"X", "Y", "X"});
    putMalformedSession("B");
    user().onBox();
    carryDeletion("X");
    EXPECT_EQ(formatsOf("A"), (Names{"Y", "X"}));
    EXPECT_EQ(formatsOf("B"), (Names{"Y"}));
}

TEST_P(FormatWalkers, AMalformedSessionAtTheStartIsWrittenAsAnEmptyRecord) {
    putMalformedSession("A");
    putSessionOf("B", {"X"});
    user().onBox();
    carry("X", "NEW");
    EXPECT_EQ(sessionRows("A"), Rows{});
    EXPECT_EQ(nameIn("A"), "");
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
}

TEST_P(FormatWalkers, XmlThatIsNoRecordIsMalformedToo) {
    putSessionOf("A", {"X"});
    memory->save(ItemPath::item(sessionFolder, "B"), "<note>hello</note>");
    user().onBox();
    carryDeletion("NOWHERE");
    expectFailureBox(0, kUpdateTag);
    EXPECT_EQ(formatsOf("B"), (Names{"X"}));
}

TEST_P(FormatWalkers, AFileThatCannotBeReadTakesTheRecordOfTheOneBefore) {
    putSessionOf("A", {"X"});
    putSessionOf("B", {"Y"});
    disk.failOn(Operation::Read, "/B.vla");
    user().onBox();
    carry("X", "NEW");
    expectFailureBox(0, kUpdateTag);
    disk.failNowhere();
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
}

TEST_P(FormatWalkers, OneMalformedSessionAmongAThousandIsToldOnce) {
    const auto nameOf = [](int number) { return "S" + std::to_string(1000 + number); };
    for (int i = 0; i < 1000; ++i) {
        if (i == 500)
            putMalformedSession(nameOf(i));
        else
            putSessionOf(nameOf(i), {"OWN " + std::to_string(i), "X"});
    }
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kUpdateTag);
    for (int i = 0; i < 1000; ++i) {
        const int source = i == 500 ? 499 : i;
        ASSERT_EQ(formatsOf(nameOf(i)), (Names{"OWN " + std::to_string(source), "NEW"})) << i;
    }
}

TEST_P(FormatWalkers, ASessionThatCannotBeWrittenIsToldAndTheOthersFollow) {
    for (const std::string name : {"A", "B", "C", "D"}) putSessionOf(name, {"X"});
    disk.failOn(Operation::Save, "/MORAM/", 1, 1);
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kUpdateTag);
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("B"), (Names{"X"}));
    EXPECT_EQ(formatsOf("C"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("D"), (Names{"NEW"}));
}

TEST_P(FormatWalkers, ADiskFullFromTheMiddleOnLeavesTheEarlierSessionsChanged) {
    for (const std::string name : {"A", "B", "C", "D"}) putSessionOf(name, {"X"});
    disk.failOn(Operation::Save, "", 2);
    user().onBox();
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(0, kUpdateTag);
    expectFailureBox(1, kUpdateTag);
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("C"), (Names{"X"}));
    EXPECT_EQ(formatsOf("D"), (Names{"X"}));
}

TEST_P(FormatWalkers, AFlushThatFailsIsToldOnceAndLeavesEverySessionAsItWas) {
    for (const std::string name : {"A", "B", "C"}) putSessionOf(name, {"X"});
    const auto before = allSessions();
    disk.failOn(Operation::Commit, "", 0, 1);
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kUpdateTag);
    EXPECT_EQ(allSessions(), before);
    carry("X", "NEW");
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"})) << "the next walk goes through";
}

TEST_P(FormatWalkers, TheSessionsBeforeAFailureAreInPlaceWhenItIsTold) {
    putSessionOf("A", {"X"});
    putMalformedSession("B");
    putSessionOf("C", {"X"});
    user().onBox([this](const SeenBox&) {
        EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
        EXPECT_EQ(formatsOf("C"), (Names{"X"}));
        return answer::Ok;
    });
    carry("X", "NEW");
    for (const std::string name : {"A", "B", "C"})
        EXPECT_EQ(formatsOf(name), (Names{"NEW"})) << name;
}

TEST_P(FormatWalkers, AWalkWithinAFailureBoxUndoesNothingOfTheOneAroundIt) {
    putSessionOf("A", {"X", "Y"});
    putMalformedSession("B");
    putSessionOf("C", {"X", "Y"});
    user().onBox([](const SeenBox&) {
        carry("Y", "NEWER");
        return answer::Ok;
    });
    user().onBox();
    carry("X", "NEW");
    for (const std::string name : {"A", "B", "C"})
        EXPECT_EQ(formatsOf(name), (Names{"NEW", "NEWER"})) << name;
}

TEST_P(FormatWalkers, ASessionAddedAndGivenUpWithinAFailureBoxLeavesNoFile) {
    putMalformedSession("B");
    user().onBox([this](const SeenBox&) {
        user().onForm("frmAddMORAMConfig", [](User& u) {
            u.type("txtName", "WITHIN");
            u.click("btnOK");
        });
        announceConfiguring([](User& u) {
            EXPECT_EQ(u.see("txtDisplayName").text, "WITHIN");
            u.click("btnCancel");
        });
        std::string name;
        EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
        return answer::Ok;
    });
    carry("X", "NEW");
    EXPECT_EQ(sessionFiles(), (Names{"B.vla"}));
}

#ifndef _WIN32  // where no folder goes while a file in it is open
TEST_P(FormatWalkers, SessionsThatVanishWithTheFolderBehindTheirSaveAreNotMissed) {
    const TemporaryFolder folder;
    const auto real = makeRealFileSystem();
    setFileSystem(real.get());
    component.init(folder.path() + "/");
    const std::string& sessions = ConfigGlobalModule::g_SessionFolder;
    Dataset record;
    record.Save(ItemPath::item(sessions, "A"));
    real->save(ItemPath::item(sessions, "B"), "<no record");
    user().onBox([&](const SeenBox&) {
        std::filesystem::remove_all(folder.path());
        return answer::Ok;
    });
    user().onBox();
    carry("X", "NEW");
    ASSERT_EQ(user().boxes().size(), 2U) << "B's load and B's save";
    for (std::size_t i = 0; i < 2; ++i) expectFailureBox(i, kUpdateTag);
    EXPECT_FALSE(std::filesystem::exists(folder.path()));
    setFileSystem(&disk);
}
#endif

TEST_P(FormatWalkers, AStoreFolderThatVanishesDuringTheWalkIsToldFileByFile) {
    const TemporaryFolder folder;
    const std::string& root = folder.path();
    const auto real = makeRealFileSystem();
    setFileSystem(real.get());
    component.init(root + "/");
    real->save(ItemPath{ConfigGlobalModule::g_SessionFolder, "A.vla"}, "<no record");
    real->save(ItemPath{ConfigGlobalModule::g_SessionFolder, "B.vla"}, "<no record");
    user().onBox([&](const SeenBox&) {
        std::filesystem::remove_all(root);
        return answer::Ok;
    });
    for (int i = 0; i < 3; ++i) user().onBox();
    carry("X", "NEW");
    EXPECT_EQ(user().boxes().size(), 4U) << "a load and a save that fail, of each session";
    for (std::size_t i = 0; i < user().boxes().size(); ++i) expectFailureBox(i, kUpdateTag);
    EXPECT_FALSE(std::filesystem::exists(root));
    EXPECT_EQ(checkForLast("X"), (LastFormat{false, ""}));
    setFileSystem(&disk);
}

TEST_P(FormatWalkers, SessionNamesMayHoldAnyLetter) {
    const Names names{"\U0001F600 PARTS", "\U0001F469\u200D\U0001F527", "部品", "ÄÖ\u0301"};
    for (const std::string& name : names) putSessionOf(name, {"X", "\U0001F600"});
    carry("\U0001F600", "\U0001F680");
    for (const std::string& name : names) {
        EXPECT_EQ(formatsOf(name), (Names{"X", "\U0001F680"})) << name;
        EXPECT_EQ(nameIn(name), name);
    }
    EXPECT_EQ(sessionFiles().size(), names.size());
    carryDeletion("X");
    for (const std::string& name : names) {
        EXPECT_EQ(formatsOf(name), (Names{"\U0001F680"})) << name;
    }
    EXPECT_TRUE(checkForLast("\U0001F680").isLast);
}

TEST_P(FormatWalkers, FilesKeepTheirSpellingAndRecordsTheirName) {
    putSessionOf("Mixed", {"X"});
    putSessionOf("", {"X"});
    memory->save(ItemPath{sessionFolder, "loud.VLA"}, sessionText("Mixed"));
    carry("X", "NEW");
    EXPECT_EQ(sessionFiles(), (Names{".vla", "loud.VLA", "Mixed.vla"}));
    EXPECT_EQ(formatsOf(""), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("loud"), (Names{"NEW"}));
    EXPECT_EQ(nameIn("loud"), "Mixed");
}

TEST_P(FormatWalkers, WhatIsNoSessionOfTheFolderStaysAsItIs) {
    putSessionOf("A", {"X"});
    const std::string record = sessionText("A");
    memory->makeFolder("/store/MORAM/deleted");
    memory->makeFolder("/store/MORAM/Q.vla");
    const std::vector<ItemPath> others{{"/store/MORAM/deleted/", "A.vla"},
                                       {"/store/MORAM/", "A.vls"},
                                       {"/store/MORAM/", "A.vla.bak"}};
    for (const ItemPath& file : others) memory->save(file, record);
    carry("X", "NEW");
    EXPECT_NE(sessionText("A"), record);
    for (const ItemPath& file : others) EXPECT_EQ(memory->read(file), record) << file.text();
}

TEST_P(FormatWalkers, AnEmptyOrAbsentSessionFolderIsNoFailure) {
    carry("X", "NEW");
    ConfigGlobalModule::g_SessionFolder = "/nowhere\\";
    carryDeletion("X");
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_FALSE(memory->folderExists("/nowhere"));
}

TEST_P(FormatWalkers, TheOpenSessionsRecordKeepsTheOldNameUntilASubDialogSavesItBack) {
    putFullSession("A", {"X"});
    putFullFormat("X");
    user().onForm("dlgAdvConfig", [](User& u) { u.click("OKButton"); });
    open("A", [this](User& u) {
        dialog().UpdatePartNumberFormatsInAllMORAMs("X", "NEW");
        EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
        u.changeTab("SSTab2", 0);
        u.click("btnAdvanced");
        EXPECT_EQ(formatsOf("A"), (Names{"X"}));
    });
}

TEST_P(FormatWalkers, TheCurrentSessionInMemoryFollowsAtOnce) {
    openInMemory({"X", "Y", "Z"}, [this](User&) {
        dialog().RenamePartNumberFormatsInCurrentMORAM("Y", "NEW");
        EXPECT_EQ(formatsInMemory(), (Names{"X", "NEW", "Z"}));
        dialog().RenamePartNumberFormatsInCurrentMORAM("X", "");
        EXPECT_EQ(formatsInMemory(), (Names{"NEW", "Z"}));
        EXPECT_EQ(countInMemory(), "2");
    });
    EXPECT_EQ(formatsInMemory(), (Names{"NEW", "Z"})) << "Cancel does not take it back";
}

TEST_P(FormatWalkers, TheCurrentSessionFollowsInItsRecordAloneInFileModeToo) {
    putFullSession("A", {"X", "Y"});
    putFullFormat("X");
    user().onForm("dlgAdvConfig", [](User& u) { u.click("OKButton"); });
    open("A", [this](User& u) {
        disk.resetCounts();
        dialog().RenamePartNumberFormatsInCurrentMORAM("X", "");
        EXPECT_EQ(reads() + saves(), 0U);
        EXPECT_EQ(formatsOf("A"), (Names{"X", "Y"}));
        u.changeTab("SSTab2", 0);
        u.click("btnAdvanced");
    });
    EXPECT_EQ(formatsOf("A"), (Names{"Y"}));
}

TEST_P(FormatWalkers, ACurrentSessionThatCannotBeReadEndsTheRenameInSilence) {
    ConfigGlobalModule::g_DatasetMode = true;
    frmMORAMConfig fresh;
    fresh.RenamePartNumberFormatsInCurrentMORAM("X", "NEW");
    ConfigGlobalModule::g_Session->AddRow({"FORMAT1", "X"});
    ConfigGlobalModule::g_Session->AddRow({"FormatCount", "many"});
    frmMORAMConfig opened;
    opened.initEX("MINE");
    opened.RenamePartNumberFormatsInCurrentMORAM("X", "NEW");
    opened.RenamePartNumberFormatsInCurrentMORAM("X", "");
    EXPECT_EQ(formatsInMemory(), (Names{"X"}));
    EXPECT_TRUE(user().boxes().empty());
}

}  // namespace
}  // namespace wynconfig
