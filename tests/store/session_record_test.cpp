// What a session's record holds after it was applied, and what a reader makes of absent keys.
#include "store/session_record.h"

#include "dialogs/session/dlgAdvConfig.h"
#include "dialogs/session/frmTallyvaneConfig.h"
#include "support/desk.h"
#include "support/session_keys.h"

namespace wynconfig {
namespace {

const Rows kDefaultsOfANewSession(kNewSession.begin(), kNewSession.end());

class SessionRecord : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        putProgram("/programs/parts.exe");
        putFormat("CSV");
        putFormat("PLAIN");
    }

    std::vector<std::string> storedKeys(const std::string& name) {
        return keysOf(rowsOf(*sessionRecord(name)));
    }

    /// Makes a session from nothing and confirms it with one format and a program.
    void addSession(const std::string& typedName) {
        user().onForm("frmAddMORAMConfig", [typedName](User& u) {
            u.type("txtName", typedName);
            u.click("btnOK");
        });
        user().onForm("frmMORAMConfig", [](User& u) {
            u.type("txtProgramPath", "/programs/parts.exe");
            u.changeTab("SSTab2", 1);
            u.pick("lstAvailableFormats", "CSV");
            u.click("btnAdd");
            u.click("btnOK");
        });
        std::string name;
        EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    }

    /// Opens a session and confirms it after `change`.
    void applyOnce(const std::string& name, const User::Script& change = nullptr) {
        user().onForm("frmMORAMConfig", [change](User& u) {
            if (change) change(u);
            u.click("btnOK");
        });
        std::string opened = name;
        EXPECT_EQ(component.showMORAMConfigDlg(opened), 0);
    }

    /// All rows of a session with every key at a value of its own, but for some.
    std::vector<std::pair<std::string, std::string>> fullRowsWithout(
        const std::set<std::string>& absent) {
        putFullSession("PATTERN", {"CSV"});
        const auto pattern = sessionRecord("PATTERN");
        memory->remove(ItemPath::item(sessionFolder, "PATTERN"));
        std::vector<std::pair<std::string, std::string>> rows;
        for (const DataRow& row : pattern->Rows()) {
            if (!absent.contains(row[0])) rows.emplace_back(row[0], row[1]);
        }
        return rows;
    }
};
ON_EVERY_VIEW(SessionRecord);

TEST_P(SessionRecord, AFirstSaveHoldsExactlyTheseKeysInThisOrder) {
    addSession("NEW");
    EXPECT_EQ(storedKeys("NEW"), kSessionKeys);
}

TEST_P(SessionRecord, ThePublicKeysAreSpelledAsTheyAreStored) {
    const std::vector<std::string> keys{session::kProgramPath,
                                        session::kCommandLineArgs,
                                        session::kReverseList,
                                        session::kAutoResize,
                                        session::kOrientation,
                                        session::kFormatCount,
                                        session::formatKey(1),
                                        session::kWindowTitleSearchType,
                                        session::kWindowClassSearchType,
                                        session::kWindowTitle,
                                        session::kWindowClass,
                                        session::kDisableProgramLaunch,
                                        session::kWindowTitleClassDelay,
                                        session::kProgramLaunchDelay,
                                        session::kWindowTitleCaseSensitive,
                                        session::kWindowClassCaseSensitive,
                                        session::kPartFormat,
                                        session::kFileName,
                                        session::kFileFolder,
                                        session::kFileAction,
                                        session::kWriteFileOnly};
    EXPECT_EQ(keys, kSessionKeys);
    EXPECT_EQ(session::kType, "MORAM");
    EXPECT_EQ(session::kColumns, (std::array<std::string, 2>{"Element", "Data"}));
    EXPECT_TRUE(session::formatKey(12) == session::kFormatPrefix + "12");
}

TEST_P(SessionRecord, ThePublicWordsAreSpelledAsTheyAreStored) {
    const std::vector<std::string> all{words::kTrue,       words::kFalse,    words::kContains,
                                       words::kStartsWith, words::kMatches,  words::kTop,
                                       words::kBottom,     words::kRight,    words::kLeft,
                                       words::kAppend,     words::kOverWrite};
    EXPECT_EQ(
        all, (std::vector<std::string>{"true", "false", "contains", "starts with", "matches", "top",
                                       "bottom", "right", "left", "Append", "OverWrite"}));
    EXPECT_EQ(words::ofSwitch(true), "true");
    EXPECT_EQ(words::ofSwitch(false), "false");
}

TEST_P(SessionRecord, EachDialogWritesItsOwnKeys) {
    ConfigGlobalModule::g_DatasetMode = true;
    const auto advancedRecord = std::make_shared<Dataset>();
    dlgAdvConfig advanced;
    advanced.init(advancedRecord, "S");
    advanced.SaveAdvancedChanges();
    EXPECT_EQ(keysOf(rowsOf(*advancedRecord)), keysOf(kAdvancedDefaults));
    const auto fileRecord = std::make_shared<Dataset>();
    frmTallyvaneConfig fileWriter;
    fileWriter.init(fileRecord, "S");
    fileWriter.SaveAdvancedChanges();
    EXPECT_EQ(keysOf(rowsOf(*fileRecord)), keysOf(kFileWriterDefaults));
}

TEST_P(SessionRecord, ANewSessionWithOneFormatHoldsTheDefaults) {
    addSession("NEW");
    EXPECT_EQ(sessionRows("NEW"), kDefaultsOfANewSession);
}

TEST_P(SessionRecord, IsOfTheSessionTypeUnderItsUpperCasedName) {
    addSession("new one");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"NEW ONE.vla"}));
    const auto record = sessionRecord("NEW ONE");
    EXPECT_EQ(record->Type(), "MORAM");
    EXPECT_EQ(record->Name(), "NEW ONE");
}

TEST_P(SessionRecord, AnApplyWithoutAnyChangeKeepsEveryValue) {
    putFullSession("FULL", {"CSV", "PLAIN"});
    const Rows before = sessionRows("FULL");
    applyOnce("FULL");
    EXPECT_EQ(sessionRows("FULL"), before);
}

TEST_P(SessionRecord, AnApplyGivesAnOlderSessionTheKeysItLacks) {
    putSession("OLD", {{"ProgramPath", "/programs/parts.exe"},
                       {"CommandLineArgs", ""},
                       {"ReverseList", "true"},
                       {"AutoResize", "true"},
                       {"Orientation", "top"},
                       {"FormatCount", "1"},
                       {"FORMAT1", "CSV"}});
    applyOnce("OLD");
    EXPECT_EQ(storedKeys("OLD"), kSessionKeys);
    EXPECT_EQ(sessionRows("OLD"), kDefaultsOfANewSession);
}

TEST_P(SessionRecord, RowsOfOtherKeysStay) {
    auto rows = fullRowsWithout({});
    rows.emplace_back("Remark", "by hand");
    putSession("FULL", rows);
    applyOnce("FULL");
    EXPECT_EQ(sessionRows("FULL")["Remark"], "by hand");
}

TEST_P(SessionRecord, TheCaseKeysAreConstantsOfEverySave) {
    auto rows = fullRowsWithout({"WindowTitleCaseSensitive", "WindowClassCaseSensitive"});
    rows.emplace_back("WindowTitleCaseSensitive", "false");
    rows.emplace_back("WindowClassCaseSensitive", "true");
    putSession("FULL", rows);
    applyOnce("FULL");
    EXPECT_EQ(sessionRows("FULL")["WindowTitleCaseSensitive"], "true");
    EXPECT_EQ(sessionRows("FULL")["WindowClassCaseSensitive"], "false");
}

TEST_P(SessionRecord, EachOrientationIsStoredByItsOwnWord) {
    for (const auto& [option, word] : std::map<std::string, std::string>{{"rdoTop", "top"},
                                                                         {"rdoBottom", "bottom"},
                                                                         {"rdoLeft", "left"},
                                                                         {"rdoRight", "right"}}) {
        putFullSession("FULL", {"CSV"});
        applyOnce("FULL", [&option = option](User& u) { u.click(option); });
        EXPECT_EQ(sessionRows("FULL")["Orientation"], word);
    }
}

TEST_P(SessionRecord, SwitchesAreStoredAsTrueOrFalse) {
    putFullSession("FULL", {"CSV"});
    applyOnce("FULL", [](User& u) {
        u.tick("chkReverseList");
        u.tick("chkAutoResize", false);
    });
    EXPECT_EQ(sessionRows("FULL")["ReverseList"], "true");
    EXPECT_EQ(sessionRows("FULL")["AutoResize"], "false");
    applyOnce("FULL", [](User& u) {
        u.tick("chkReverseList", false);
        u.tick("chkAutoResize");
    });
    EXPECT_EQ(sessionRows("FULL")["ReverseList"], "false");
    EXPECT_EQ(sessionRows("FULL")["AutoResize"], "true");
}

TEST_P(SessionRecord, PathAndCommandLineAreStoredAsTyped) {
    putProgram("/programs/my parts.exe");
    putFullSession("FULL", {"CSV"});
    applyOnce("FULL", [](User& u) {
        u.type("txtProgramPath", "\"/programs/my parts.exe\"");
        u.type("txtCommandLineArgs", "  /List <x> &\"é\"  ");
    });
    EXPECT_EQ(sessionRows("FULL")["ProgramPath"], "\"/programs/my parts.exe\"");
    EXPECT_EQ(sessionRows("FULL")["CommandLineArgs"], "  /List <x> &\"é\"  ");
}

TEST_P(SessionRecord, FormatsAreNumberedFromOneInTheOrderOfTheList) {
    putFullSession("FULL", {"PLAIN", "CSV"});
    applyOnce("FULL", [](User& u) {
        u.changeTab("SSTab2", 1);
        u.pick("lstSelectedFormats2", "PLAIN");
        u.click("btnRemove");
        u.pick("lstAvailableFormats", "PLAIN");
        u.click("btnAdd");
    });
    Rows rows = sessionRows("FULL");
    EXPECT_EQ(rows["FormatCount"], "2");
    EXPECT_EQ(rows["FORMAT1"], "CSV");
    EXPECT_EQ(rows["FORMAT2"], "PLAIN");
}

TEST_P(SessionRecord, TheAdvancedKeysBehindAnAbsentOneAreReplacedByTheirDefaults) {
    // The last two are constants, which no reader asks for.
    const Stored set(kOwnAdvanced.begin(), kOwnAdvanced.end() - 2);
    const std::vector<std::string> keys = keysOf(set);
    for (std::size_t absent = 0; absent < set.size(); ++absent) {
        auto rows = fullRowsWithout({keys.begin(), keys.end()});
        for (std::size_t i = 0; i < set.size(); ++i) {
            if (i != absent) rows.push_back(set[i]);
        }
        putSession("FULL", rows);
        applyOnce("FULL");
        const Rows now = sessionRows("FULL");
        for (std::size_t i = 0; i < set.size(); ++i) {
            EXPECT_EQ(now.at(set[i].first),
                      i < absent ? set[i].second : kAdvancedDefaults[i].second)
                << set[i].first << " without " << set[absent].first;
        }
    }
}

TEST_P(SessionRecord, AnAbsentFileWriterKeyAloneIsReplacedByItsDefault) {
    for (const auto& [absent, byDefault] : kFileWriterDefaults) {
        putFullSession("FULL", {"CSV"});
        Rows expected = sessionRows("FULL");
        expected[absent] = byDefault;
        putSession("FULL", fullRowsWithout({absent}));
        applyOnce("FULL");
        EXPECT_EQ(sessionRows("FULL"), expected) << absent;
    }
}

TEST_P(SessionRecord, AFileNamedInLowerCaseIsFoundAndKeepsItsSpellingAndItsName) {
    putFullSession("desk", {"CSV"});
    applyOnce("DESK", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
        u.type("txtCommandLineArgs", "/changed");
    });
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"desk.vla"}));
    EXPECT_EQ(sessionRecord("DESK")->Name(), "desk");
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

TEST_P(SessionRecord, InFileModeNoSessionIsProtectedFromANewName) {
    putFullSession("FULL", {"CSV"});
    applyOnce("FULL", [](User& u) { u.type("txtDisplayName", "other"); });
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"OTHER.vla"}));
}

TEST_P(SessionRecord, TheNamesOfListingsAreThoseOfTheFilesWithoutTheCatalogue) {
    putSession("B", {});
    putSession("a", {});
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(),
                  (std::vector<std::string>{"{ADD_MORAM_CONFIG_NONE}", "a", "B"}));
        u.click("btnCancel");
    });
    std::string name;
    component.showAddMORAMConfigDlg(name);
    EXPECT_FALSE(memory->find(ItemPath{sessionFolder, "MORAM.vls"}).empty());
}

}  // namespace
}  // namespace wynconfig
