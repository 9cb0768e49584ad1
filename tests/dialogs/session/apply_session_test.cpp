// Applying a session: the buttons, the writing, and renaming, in file mode and in the in-memory
// mode.
#include "support/session_dialog_desk.h"
#include "support/session_keys.h"

namespace wynconfig {
namespace {

const std::string kJapanese = "部品リスト";
const std::string kCombining = "CAFE\xCC\x81 \xC3\x85";
const std::string kEmoji = "TOOLS \xF0\x9F\x94\xA7";

class ApplySession : public FullSessionDesk {
  protected:
    void SetUp() override {
        FullSessionDesk::SetUp();
        putFormat("PLAIN");
    }

    std::string storedName(const std::string& file) { return sessionRecord(file)->Name(); }
    static std::string row(const std::string& key) {
        return ConfigGlobalModule::g_Session->GetRow(key)[1];
    }
    void announceRefusal() { user().onBox(); }
};
ON_EVERY_VIEW(ApplySession);

// The buttons.

TEST_P(ApplySession, OkWritesAndClosesWithZero) {
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

TEST_P(ApplySession, ApplyWritesAndStaysOpen) {
    open("DESK", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnApply");
        EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
        EXPECT_TRUE(u.canUse("txtDisplayName"));
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 0);
}

TEST_P(ApplySession, CancelWritesNothingAndGivesOne) {
    const std::string before = sessionText("DESK");
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionText("DESK"), before);
}

TEST_P(ApplySession, CancelAfterApplyTakesNothingBack) {
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/applied");
        u.click("btnApply");
        u.type("txtCommandLineArgs", "/not applied");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/applied");
}

TEST_P(ApplySession, AfterAFailedApplyCancelGivesOneWithTheFirstWritesInPlace) {
    announceRefusal();
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/applied");
        u.click("btnApply");
        u.type("txtDisplayName", "");
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/applied");
}

TEST_P(ApplySession, AfterAFailedApplyAnotherOneCountsAgain) {
    announceRefusal();
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "");
        u.click("btnApply");
        u.type("txtDisplayName", "DESK");
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 0);
}

TEST_P(ApplySession, ARefusedOkLeavesTheDialogOpenAndAnEarlierApplyInForce) {
    announceRefusal();
    open("DESK", [](User& u) {
        u.click("btnApply");
        u.type("txtDisplayName", "");
        u.click("btnOK");
        EXPECT_TRUE(u.canUse("txtDisplayName"));
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 0);
}

TEST_P(ApplySession, ARefusedOkAloneGivesOne) {
    announceRefusal();
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "");
        u.click("btnOK");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplySession, TheFrameGivesOneAfterApply) {
    open("DESK", [](User& u) {
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplySession, EnterIsOk) {
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.pressEnter();
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

// The writing.

TEST_P(ApplySession, RowsAreWrittenAnewBehindThoseThatNobodyWrites) {
    Dataset record;
    record.Load(ItemPath::item(sessionFolder, "DESK"));
    record.DeleteRow("ProgramPath");
    record.AddRow({"Remark", "by hand"});
    record.AddRow({"ProgramPath", "/programs/parts.exe"});
    record.Save(ItemPath::item(sessionFolder, "DESK"));
    open("DESK", [](User& u) { u.click("btnOK"); });
    record.Load(ItemPath::item(sessionFolder, "DESK"));
    Names keys;
    for (const DataRow& each : record.Rows()) keys.push_back(each[0]);
    Names expected{"Remark"};
    expected.insert(expected.end(), kSessionKeys.begin(), kSessionKeys.end());
    EXPECT_EQ(keys, expected);
}

TEST_P(ApplySession, TheHiddenPassesAreNeverShown) {
    open("DESK", [](User& u) { u.click("btnOK"); });
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"}));
}

TEST_P(ApplySession, TheHiddenPassesLeaveTheLastChosenFormatOfTheFileWriterAlone) {
    ConfigGlobalModule::g_TallyvanePartFormat = "EARLIER";
    open("DESK", [](User& u) { u.click("btnOK"); });
    EXPECT_EQ(ConfigGlobalModule::g_TallyvanePartFormat, "EARLIER");
}

TEST_P(ApplySession, EachApplyWithoutARenameSavesThreeTimesToTheOneFile) {
    open("DESK", [this](User& u) {
        disk.resetCounts();
        u.click("btnApply");
        EXPECT_EQ(disk.count(Operation::Save), 3U);
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    });
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
}

TEST_P(ApplySession, WithoutAnOrientationLeftIsWritten) {
    open("", [this](User& u) {
        user().onBox();
        fillIn(u, "NEW");
        u.click("btnOK");
    });
    Rows rows = sessionRows("NEW");
    EXPECT_EQ(rows["Orientation"], "left");
    EXPECT_EQ(rows["ReverseList"], "false");
    EXPECT_EQ(rows["AutoResize"], "true");
}

TEST_P(ApplySession, AnAbsentFormatRowLeavesTheCountAndTheLaterRowsAsTheyWere) {
    putSession("ODD", {{"ProgramPath", "/programs/parts.exe"},
                       {"FormatCount", "3"},
                       {"FORMAT1", "A"},
                       {"FORMAT3", "C"}});
    open("ODD", [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), (Names{"A", "C"}));
        u.click("btnOK");
    });
    Rows rows = sessionRows("ODD");
    EXPECT_EQ(rows["FormatCount"], "3");
    EXPECT_EQ(rows["FORMAT1"], "A");
    EXPECT_EQ(rows["FORMAT2"], "C");
    EXPECT_EQ(rows["FORMAT3"], "C");
}

TEST_P(ApplySession, ACountThatIsNoNumberLeavesTheOldRowsAsTheyWere) {
    putSession("ODD",
               {{"ProgramPath", "/programs/parts.exe"}, {"FormatCount", "two"}, {"FORMAT1", "A"}});
    open("ODD", [](User& u) {
        addFormats(u, {"CSV", "PLAIN"});
        u.click("btnOK");
    });
    Rows rows = sessionRows("ODD");
    EXPECT_EQ(rows["FormatCount"], "two");
    EXPECT_EQ(rows["FORMAT1"], "A");
    EXPECT_EQ(rows["FORMAT2"], "PLAIN");
}

TEST_P(ApplySession, WithoutACountTheOldFormatRowsStay) {
    putSession("ODD", {{"ProgramPath", "/programs/parts.exe"},
                       {"Orientation", "top"},
                       {"FORMAT1", "A"},
                       {"FORMAT2", "B"}});
    open("ODD", [](User& u) {
        addFormats(u, {"CSV"});
        u.click("btnOK");
    });
    Rows rows = sessionRows("ODD");
    EXPECT_EQ(rows["FormatCount"], "1");
    EXPECT_EQ(rows["FORMAT1"], "A");
    EXPECT_EQ(rows["FORMAT2"], "B");
}

TEST_P(ApplySession, FewerFormatsLeaveNoRowsBehind) {
    putFullSession("MANY", {"A", "B", "C"});
    open("MANY", [](User& u) {
        removeFormats(u, {"A", "C"});
        u.click("btnOK");
    });
    Rows rows = sessionRows("MANY");
    EXPECT_EQ(rows["FormatCount"], "1");
    EXPECT_EQ(rows["FORMAT1"], "B");
    EXPECT_FALSE(rows.contains("FORMAT2"));
    EXPECT_FALSE(rows.contains("FORMAT3"));
}

// The launch check.

TEST_P(ApplySession, AQuotedPathIsTestedWithoutItsQuotesAndStoredWithThem) {
    open("DESK", [](User& u) {
        u.type("txtProgramPath", "\"/programs/parts.exe\"");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["ProgramPath"], "\"/programs/parts.exe\"");
}

TEST_P(ApplySession, AQuoteInFrontAloneCostsThePathItsLastCharacterForTheTest) {
    putProgram("/programs/partsX");
    announceRefusal();
    open("DESK", [](User& u) {
        u.type("txtProgramPath", "\"/programs/partsX");
        u.click("btnApply");
        EXPECT_TRUE(u.see("txtProgramPath").focus);
        u.type("txtProgramPath", "\"/programs/partsXé");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["ProgramPath"], "\"/programs/partsXé");
}

TEST_P(ApplySession, ThePathIsLookedUpExactlyAsTyped) {
    putProgram("local.exe");
    open("DESK", [](User& u) {
        u.type("txtProgramPath", "local.exe");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
}

TEST_P(ApplySession, WithTheLaunchDisabledNeitherAnEmptyNorAnInvalidPathIsRefused) {
    for (const char* path : {"", "/no/such.exe", "\""}) {
        putFullSession("OFF", {"CSV"});
        changeSession("OFF", {{"DisableProgramLaunch", "true"}, {"ProgramPath", path}});
        open("OFF", [](User& u) { u.click("btnOK"); });
        EXPECT_EQ(result(), 0) << path;
        EXPECT_EQ(sessionRows("OFF")["ProgramPath"], path);
        EXPECT_EQ(sessionRows("OFF")["DisableProgramLaunch"], "true");
    }
}

TEST_P(ApplySession, DisablingTheLaunchInTheAdvancedDialogLetsAnInvalidPathPass) {
    open("DESK", [this](User& u) {
        u.type("txtProgramPath", "/no/such.exe");
        user().onForm("dlgAdvConfig", [](User& inner) {
            inner.tick("chkDisableProgramLaunch");
            inner.click("OKButton");
        });
        u.click("btnAdvanced");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
}

// Renaming.

TEST_P(ApplySession, ANewNameMovesTheFileAndBecomesTheSessionName) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", " my bench ");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "MY BENCH");
    EXPECT_EQ(sessionFiles(), (Names{"MY BENCH.vla"}));
    EXPECT_EQ(storedName("MY BENCH"), "MY BENCH");
    EXPECT_EQ(sessionRows("MY BENCH")["CommandLineArgs"], "/list /quiet");
}

TEST_P(ApplySession, ANameThatDiffersInCaseAloneIsNoRename) {
    open("DESK", [this](User& u) {
        u.type("txtDisplayName", "dEsK");
        disk.resetCounts();
        u.pressEnter();
        EXPECT_EQ(disk.count(Operation::Save), 3U);
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "DESK");
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
    EXPECT_EQ(storedName("DESK"), "DESK");
}

TEST_P(ApplySession, ASecondApplyRenamesOnFromTheNewName) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "ONE");
        u.click("btnApply");
        u.type("txtDisplayName", "TWO");
        u.click("btnApply");
        u.type("txtDisplayName", "DESK");
        u.click("btnOK");
    });
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
}

TEST_P(ApplySession, ARefusedPathLeavesTheRenameAndTheNewValuesOnDisk) {
    announceRefusal();
    open("DESK", [this](User& u) {
        u.type("txtDisplayName", "BENCH");
        u.type("txtProgramPath", "/no/such.exe");
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnApply");
        EXPECT_EQ(sessionFiles(), (Names{"BENCH.vla"}));
        EXPECT_EQ(sessionRows("BENCH")["ProgramPath"], "/no/such.exe");
        EXPECT_EQ(sessionRows("BENCH")["CommandLineArgs"], "/changed");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionName(), "DESK");
}

TEST_P(ApplySession, AfterMendingThePathTheNamesAreEqualAndTheApplyPasses) {
    announceRefusal();
    open("DESK", [this](User& u) {
        u.type("txtDisplayName", "BENCH");
        u.type("txtProgramPath", "/no/such.exe");
        u.click("btnApply");
        u.type("txtProgramPath", "/programs/parts.exe");
        disk.resetCounts();
        u.click("btnApply");
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "BENCH");
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(ApplySession, ARefusedPathKeepsTheFileWriterRowsOutOfTheFile) {
    putSession("BARE", {{"FormatCount", "1"}, {"FORMAT1", "CSV"}});
    announceRefusal();
    open("BARE", [](User& u) { u.click("btnOK"); });
    Rows rows = sessionRows("BARE");
    EXPECT_EQ(rows["Orientation"], "top");
    EXPECT_EQ(rows["WindowClassCaseSensitive"], "false");
    EXPECT_FALSE(rows.contains("PartFormat"));
    EXPECT_FALSE(rows.contains("WriteFileOnly"));
}

TEST_P(ApplySession, ANameWithOuterBlanksOnEnterGoesToTwoFiles) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", " mine ");
        u.pressEnter();
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), " MINE ");
    EXPECT_EQ(sessionFiles(), (Names{" MINE .vla", "MINE.vla"}));
    EXPECT_EQ(storedName(" MINE "), " MINE ");
    EXPECT_EQ(sessionRows("MINE"), sessionRows(" MINE "));
}

TEST_P(ApplySession, TheFirstHiddenPassSavesUnderTheNameAsTyped) {
    announceRefusal();
    open("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.type("txtProgramPath", "/no/such.exe");
        u.type("txtDisplayName", " mine ");
        u.pressEnter();
    });
    EXPECT_EQ(sessionFiles(), (Names{" MINE .vla"}));
    EXPECT_EQ(sessionRows(" MINE ")["CommandLineArgs"], "/changed");
}

TEST_P(ApplySession, TheLastSaveGoesToTheNameAsTyped) {
    user().onBox();
    open("DESK", [this](User& u) {
        disk.failOn(Operation::Save, "", 0, 3);
        u.type("txtDisplayName", " mine ");
        u.pressEnter();
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionFiles(), (Names{" mine .vla"}));
    EXPECT_EQ(storedName(" mine "), " MINE ");
}

TEST_P(ApplySession, ANameWithOuterBlanksOnEnterRunsOverTheSessionOfTheTrimmedName) {
    putSession("OTHER", {{"Remark", "to be lost"}});
    open("DESK", [](User& u) {
        u.type("txtDisplayName", " other");
        u.pressEnter();
    });
    EXPECT_EQ(result(), 0);
    EXPECT_FALSE(sessionRows("OTHER").contains("Remark"));
    EXPECT_EQ(storedName("OTHER"), " OTHER");
}

TEST_P(ApplySession, ALoneBlankOnEnterIsAName) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", " ");
        u.pressEnter();
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), " ");
    EXPECT_EQ(sessionFiles(), (Names{" .vla", ".vla"}));
}

TEST_P(ApplySession, AHandCopiedFileCanOnlyBeAppliedUnderAnotherNameAndTakesTheOriginalAway) {
    memory->save(ItemPath::item(sessionFolder, "COPY"), sessionText("DESK"));
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, "{MORAM_CONFIG_MSG_NAME_EXISTS} COPY. {MORAM_CONFIG_MSG_REENTER_NAME}");
        return answer::Ok;
    });
    open("COPY", [this](User& u) {
        u.click("btnApply");
        EXPECT_EQ(sessionFiles(), (Names{"COPY.vla", "DESK.vla"}));
        u.type("txtDisplayName", "THIRD");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionFiles(), (Names{"COPY.vla", "THIRD.vla"}));
}

TEST_P(ApplySession, NamesInAnyScriptAreFileNames) {
    for (const std::string& name : {kJapanese, kCombining, kEmoji}) {
        open("DESK", [&](User& u) {
            u.type("txtDisplayName", name);
            u.click("btnOK");
        });
        EXPECT_EQ(result(), 0);
        EXPECT_EQ(sessionName(), name);
        EXPECT_EQ(sessionFiles(), (Names{name + ".vla"}));
        EXPECT_EQ(storedName(name), name);
        open(name, [&](User& u) {
            EXPECT_EQ(u.see("txtDisplayName").text, name);
            u.type("txtDisplayName", "DESK");
            u.click("btnOK");
        });
        EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
    }
}

TEST_P(ApplySession, TextsInAnyScriptSurvive) {
    const std::string text = kJapanese + kCombining + kEmoji + " <&>\"'";
    open("DESK", [&](User& u) {
        u.type("txtCommandLineArgs", text);
        u.click("btnOK");
    });
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], text);
    open("DESK", [&](User& u) { EXPECT_EQ(u.see("txtCommandLineArgs").text, text); });
}

TEST_P(ApplySession, AComposedAndADecomposedNameAreTwo) {
    putSession("CAF\xC3\x89", {});
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "CAFE\xCC\x81");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionFiles().size(), 2U);
}

// In the in-memory mode.

TEST_P(ApplySession, InMemoryNothingIsSaved) {
    const std::string before = sessionText("DESK");
    openInMemory("MINE", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        disk.resetCounts();
        u.click("btnOK");
        EXPECT_EQ(disk.count(Operation::Save), 0U);
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "MINE");
    EXPECT_EQ(row("CommandLineArgs"), "/changed");
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
    EXPECT_EQ(sessionText("DESK"), before);
}

TEST_P(ApplySession, InMemoryAllKeysComeToExist) {
    openInMemory("MINE", [](User& u) {
        ConfigGlobalModule::g_Session->ClearRows();
        u.click("btnOK");
    });
    Names keys;
    for (const DataRow& each : ConfigGlobalModule::g_Session->Rows()) keys.push_back(each[0]);
    EXPECT_EQ(keys.size(), 21U);
    EXPECT_EQ(keys.front(), "ProgramPath");
    EXPECT_EQ(keys.back(), "WriteFileOnly");
    EXPECT_EQ(row("WindowTitleSearchType"), "contains");
    EXPECT_EQ(row("PartFormat"), kNoneRow);
}

TEST_P(ApplySession, InMemoryAUsersSessionIsFreelyRenamed) {
    openInMemory("MINE", [this](User& u) {
        u.type("txtDisplayName", " yours ");
        disk.resetCounts();
        u.click("btnOK");
        EXPECT_EQ(disk.count(Operation::Save), 0U);
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "YOURS");
    EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), "YOURS");
    EXPECT_EQ(ConfigGlobalModule::g_Session->Folder(), sessionFolder);
}

TEST_P(ApplySession, InMemoryAFactorySessionMayBeAppliedUnderItsOwnName) {
    openInMemory("DESK", [](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(row("CommandLineArgs"), "/changed");
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/list /quiet");
}

TEST_P(ApplySession, InMemoryFactoryFormatsAreBroughtToTheHost) {
    putFormat("PLAIN", {{"Header", "from the store"}});
    auto stale = std::make_shared<Dataset>();
    stale->setName("PLAIN");
    stale->AddRow({"Header", "stale"});
    ConfigGlobalModule::g_PartFormats.Add(stale, "PLAIN");
    auto hosted = std::make_shared<Dataset>();
    hosted->setName("HOSTED");
    ConfigGlobalModule::g_PartFormats.Add(hosted, "HOSTED");
    openInMemory("MINE", [](User& u) {
        addFormats(u, {"PLAIN", "HOSTED"});
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    const auto& formats = ConfigGlobalModule::g_PartFormats;
    EXPECT_EQ(formats.Count(), 3U);
    EXPECT_EQ(formats.Item("CSV")->Name(), "CSV");
    EXPECT_EQ(formats.Item("PLAIN")->GetRow("Header")[1], "from the store");
    EXPECT_EQ(formats.Item("HOSTED"), hosted);
    EXPECT_EQ(row("FormatCount"), "3");
    EXPECT_EQ(row("FORMAT3"), "HOSTED");
}

TEST_P(ApplySession, InFileModeNoFormatIsBroughtToTheHost) {
    open("DESK", [](User& u) { u.click("btnOK"); });
    EXPECT_EQ(ConfigGlobalModule::g_PartFormats.Count(), 0U);
}

TEST_P(ApplySession, InMemoryTheButtonsAnswerTheSame) {
    openInMemory("MINE", [](User& u) {
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 0);
    openInMemory("MINE", [](User& u) { u.click("btnCancel"); });
    EXPECT_EQ(result(), 1);
    openInMemory("MINE", [](User& u) {
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplySession, InMemoryARefusedPathLeavesTheRowsWrittenAndTheNewName) {
    announceRefusal();
    openInMemory("MINE", [](User& u) {
        u.type("txtDisplayName", "YOURS");
        u.type("txtProgramPath", "/no/such.exe");
        u.click("btnApply");
        EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), "YOURS");
        EXPECT_EQ(row("ProgramPath"), "/no/such.exe");
        u.click("btnCancel");
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionName(), "MINE");
}

}  // namespace
}  // namespace wynconfig
