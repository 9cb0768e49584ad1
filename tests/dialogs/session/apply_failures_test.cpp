// What applying a session refuses, in which order and with which box, and what becomes of steps
// that fail.
#include <memory>

#include "support/failing_views.h"
#include "support/session_dialog_desk.h"
#include "support/session_keys.h"

namespace wynconfig {
namespace {

const std::string kForbidden = "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | .";
const std::string kFileTag = "UnifrmMORAMConfig:ApplyChanges";
const std::string kMemoryTag = "UnifrmMORAMConfig:ApplyChangesEX";

class ApplyFailures : public FullSessionDesk {
  protected:
    /// Opens the session "DESK" in file mode, then in the in-memory mode.
    void openInBothModes(const std::function<void(User&)>& script) {
        for (const bool inMemory : {false, true}) {
            SCOPED_TRACE(inMemory ? "in memory" : "in file mode");
            inMemory ? openInMemory("MINE", script) : open("DESK", script);
        }
    }

    /// Announces a refusal by exactly this box.
    void expectRefusal(const std::string& text, const std::string& titleKey) {
        user().onBox([text, titleKey](const SeenBox& box) {
            EXPECT_EQ(box.text, text);
            EXPECT_EQ(box.title, "{" + titleKey + "}");
            EXPECT_EQ(box.style, 16);
            EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
            return answer::Ok;
        });
    }
    /// Announces a failure box with this tag.
    void expectFailure(const std::string& tag) {
        user().onBox([tag](const SeenBox& box) {
            EXPECT_TRUE(isFailureOf(box.text, tag)) << box.text;
            EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
            EXPECT_EQ(box.style, 4112);
            return answer::Ok;
        });
    }
    void expectNoText(const std::string& tag, const std::string& key) {
        user().onBox([tag, key](const SeenBox& box) {
            EXPECT_EQ(box.text, failureText(tag, "no text for " + key));
            return answer::Ok;
        });
    }
    void disableLaunch() { changeSession("DESK", {{"DisableProgramLaunch", "true"}}); }

    /// Renames "DESK" to what can't be saved: both saves are told, and the old file goes all the
    /// same.
    void renameInVain(const std::string& name) {
        open("DESK", [&](User& u) {
            expectFailure(kFileTag);
            expectFailure(kFileTag);
            u.type("txtDisplayName", name);
            u.click("btnOK");
        });
        EXPECT_EQ(result(), 0);
        EXPECT_EQ(sessionName(), name);
        EXPECT_EQ(sessionFiles(), Names{});
    }
};
ON_EVERY_VIEW(ApplyFailures);

// The checks and their boxes.

TEST_P(ApplyFailures, AnEmptyNameIsRefused) {
    openInBothModes([this](User& u) {
        expectRefusal("{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}", "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.type("txtDisplayName", "");
        u.click("btnOK");
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(ApplyFailures, ANameOfBlanksIsEmptyOnceItsBoxIsLeft) {
    expectRefusal("{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}", "MORAM_CONFIG_MSG_DISPLAY_NAME");
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "   ");
        u.click("btnApply");
    });
}

TEST_P(ApplyFailures, ForbiddenCharactersAndNumbersAreRefusedAsNames) {
    const Names names{"A\\B", "A/B",   "A:B", "A*B",   "A?B", "A\"B",    "A<B",
                      "A>B",  "A|B",   "A.B", ".",     "123", "-4",      "1E5",
                      "12.5", " 123 ", "$12", "1,000", "..",  "..\\DESK"};
    openInBothModes([&](User& u) {
        for (const std::string& name : names) {
            SCOPED_TRACE(name);
            expectRefusal(kForbidden, "MORAM_CONFIG_MSG_INVALID_CONFIG");
            u.type("txtDisplayName", name);
            u.click("btnApply");
            EXPECT_TRUE(u.see("txtDisplayName").focus);
        }
    });
    EXPECT_EQ(user().boxes().size(), 2 * names.size());
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
}

TEST_P(ApplyFailures, ASessionWithoutFormatsIsRefused) {
    openInBothModes([this](User& u) {
        expectRefusal("{MORAM_CONFIG_MSG_SELECT_FORMAT}", "MORAM_CONFIG_MSG_PART_FORMAT");
        removeFormats(u, {"CSV"});
        u.changeTab("SSTab2", 0);
        u.click("btnOK");
        EXPECT_EQ(u.see("SSTab2").selected, 2U);
        EXPECT_TRUE(u.see("lstAvailableFormats").focus);
    });
}

TEST_P(ApplyFailures, AnExistingNameIsRefusedAsTyped) {
    putSession("OTHER", {});
    openInBothModes([this](User& u) {
        expectRefusal("{MORAM_CONFIG_MSG_NAME_EXISTS} oTher. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.type("txtDisplayName", "oTher");
        u.pressEnter();
        EXPECT_TRUE(u.see("txtDisplayName").focus);
        expectRefusal("{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.click("btnOK");
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla", "OTHER.vla"}));
    EXPECT_TRUE(sessionRows("OTHER").empty());
}

TEST_P(ApplyFailures, AnExistingNameIsFoundInAnySpelling) {
    putSession("other", {});
    expectRefusal("{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "MORAM_CONFIG_MSG_DISPLAY_NAME");
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "OTHER");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplyFailures, InMemoryAFactorySessionTakesNoNewName) {
    expectRefusal("{MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS}", "MORAM_CONFIG_MSG_ERROR");
    openInMemory("DESK", [](User& u) {
        u.type("txtDisplayName", "MINE");
        u.type("txtCommandLineArgs", "/changed");
        u.changeTab("SSTab2", 1);
        u.click("btnOK");
        EXPECT_EQ(u.see("SSTab2").selected, 1U);
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), "DESK");
    EXPECT_EQ(ConfigGlobalModule::g_Session->GetRow("CommandLineArgs")[1], "/list /quiet");
}

TEST_P(ApplyFailures, InMemoryAFactorySessionsNameIsRefusedAsExistingFirst) {
    putSession("OTHER", {});
    expectRefusal("{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "MORAM_CONFIG_MSG_DISPLAY_NAME");
    openInMemory("DESK", [](User& u) {
        u.type("txtDisplayName", "OTHER");
        u.click("btnOK");
    });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(ApplyFailures, AnEmptyPathIsRefused) {
    openInBothModes([this](User& u) {
        expectRefusal("{MORAM2_MSG_CHECK_SESSION_CONFIG}.", "MORAM2_MSG_APP_PATH_EMPTY");
        u.type("txtProgramPath", "");
        u.click("btnOK");
        EXPECT_TRUE(u.see("txtProgramPath").focus);
    });
    EXPECT_EQ(sessionRows("DESK")["ProgramPath"], "");
}

TEST_P(ApplyFailures, APathThatNamesNoFileIsRefused) {
    memory->makeFolder("/programs/folder");
    const std::vector<std::string> paths{"/no/such.exe",
                                         "/programs/folder",
                                         "/programs",
                                         "/programs/parts.exe/",
                                         "/programs/PARTS.EXE",
                                         " /programs/parts.exe",
                                         "\"",
                                         "\"\"",
                                         "\"/programs/parts.exe",
                                         "/programs/parts.exe\"",
                                         "/programs/*.exe",
                                         "/programs/parts.ex?",
                                         "\" /programs/parts.exe\""};
    openInBothModes([&](User& u) {
        for (const std::string& path : paths) {
            SCOPED_TRACE(path);
            expectRefusal("{MORAM2_MSG_CHECK_SESSION_CONFIG}.", "MORAM2_MSG_APP_PATH_INVALID");
            u.type("txtProgramPath", path);
            u.click("btnApply");
            EXPECT_TRUE(u.see("txtProgramPath").focus);
        }
    });
    EXPECT_EQ(user().boxes().size(), 2 * paths.size());
    EXPECT_EQ(result(), 1);
}

// Their order.

TEST_P(ApplyFailures, OnlyTheFirstOffenceIsTold) {
    putSession("OTHER", {});
    open("DESK", [this](User& u) {
        removeFormats(u, {"CSV"});
        u.changeTab("SSTab2", 0);
        u.type("txtProgramPath", "/no/such.exe");

        u.type("txtDisplayName", "");
        expectRefusal("{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}", "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.click("btnApply");

        u.type("txtDisplayName", "OTHER.");
        expectRefusal(kForbidden, "MORAM_CONFIG_MSG_INVALID_CONFIG");
        u.click("btnApply");

        u.type("txtDisplayName", "OTHER");
        expectRefusal("{MORAM_CONFIG_MSG_SELECT_FORMAT}", "MORAM_CONFIG_MSG_PART_FORMAT");
        u.click("btnApply");

        u.pick("lstAvailableFormats", "CSV");
        u.click("btnAdd");
        expectRefusal("{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.click("btnApply");

        u.type("txtDisplayName", "NEW");
        expectRefusal("{MORAM2_MSG_CHECK_SESSION_CONFIG}.", "MORAM2_MSG_APP_PATH_INVALID");
        u.click("btnApply");
    });
    EXPECT_EQ(user().boxes().size(), 5U);
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplyFailures, TheChecksBeforeTheRenameWriteNothing) {
    const std::string before = sessionText("DESK");
    putSession("OTHER", {});
    open("DESK", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        for (const char* name : {"", "A.B", "OTHER"}) {
            user().onBox();
            u.type("txtDisplayName", name);
            u.click("btnOK");
        }
        user().onBox();
        u.type("txtDisplayName", "NEW");
        removeFormats(u, {"CSV"});
        u.click("btnOK");
    });
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla", "OTHER.vla"}));
    EXPECT_EQ(sessionText("DESK"), before);
}

// Where the focus goes.

TEST_P(ApplyFailures, ARefusalOnTheLaunchTabBringsItToTheFront) {
    for (const char* path : {"", "/no/such.exe"}) {
        open("DESK", [this, path](User& u) {
            u.type("txtProgramPath", path);
            u.changeTab("SSTab2", 1);
            user().onBox();
            u.click("btnOK");
            EXPECT_EQ(u.see("SSTab2").selected, 1U);
            EXPECT_TRUE(u.see("txtProgramPath").visible);
            EXPECT_TRUE(u.see("txtProgramPath").focus);
        });
    }
}

TEST_P(ApplyFailures, AnEmptyNameToldOnTheFormatTabBringsTheLaunchTabToTheFront) {
    open("DESK", [this](User& u) {
        u.type("txtDisplayName", "");
        u.changeTab("SSTab2", 1);
        user().onBox();
        u.click("btnApply");
        EXPECT_EQ(u.see("SSTab2").selected, 1U);
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
}

TEST_P(ApplyFailures, ATabBroughtToTheFrontByARefusalIsNoClickOnIt) {
    open("DESK", [this](User& u) {
        u.type("txtDisplayName", "");
        u.changeTab("SSTab2", 1);
        user().onBox();
        u.click("btnApply");
        EXPECT_FALSE(u.see("txtDisplayName").tabStop);
        EXPECT_TRUE(u.see("btnNew").tabStop);
    });
    open("DESK", [this](User& u) {
        removeFormats(u, {"CSV"});
        u.changeTab("SSTab2", 0);
        u.type("txtDisplayName", "BENCH");
        user().onBox();
        u.click("btnApply");
        EXPECT_EQ(u.see("SSTab2").selected, 2U);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "DESK");
        EXPECT_TRUE(u.see("txtDisplayName").tabStop);
        EXPECT_FALSE(u.see("btnNew").tabStop);
    });
}

TEST_P(ApplyFailures, AHiddenListTakesNoFocus) {
    open("GONE", [this](User& u) {
        u.type("txtDisplayName", "NEW");
        expectRefusal("{MORAM_CONFIG_MSG_SELECT_FORMAT}", "MORAM_CONFIG_MSG_PART_FORMAT");
        u.click("btnApply");
        EXPECT_EQ(u.see("SSTab2").selected, 2U);
        EXPECT_FALSE(u.see("lstAvailableFormats").focus);
    });
    EXPECT_EQ(result(), 1);
}

// Texts that can't be had.

TEST_P(ApplyFailures, ARefusalWithoutItsTextsIsShownBehindTheFailures) {
    struct Refusal {
        const char* key;
        const char* name;
        bool noFormats;
        const char* text;
        const char* title;
    };
    putSession("OTHER", {});
    const std::vector<Refusal> refusals{
        {"MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME", "", false, "", "{MORAM_CONFIG_MSG_DISPLAY_NAME}"},
        {"MORAM_CONFIG_MSG_DISPLAY_NAME", "", false, "{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}", ""},
        {"MORAM_CONFIG_MSG_INVALID_CHARS", "A.B", false, "\r\n         \\ / : * ? \" < > | .",
         "{MORAM_CONFIG_MSG_INVALID_CONFIG}"},
        {"MORAM_CONFIG_MSG_INVALID_CONFIG", "A.B", false, kForbidden.c_str(), ""},
        {"MORAM_CONFIG_MSG_SELECT_FORMAT", "DESK", true, "", "{MORAM_CONFIG_MSG_PART_FORMAT}"},
        {"MORAM_CONFIG_MSG_PART_FORMAT", "DESK", true, "{MORAM_CONFIG_MSG_SELECT_FORMAT}", ""},
        {"MORAM_CONFIG_MSG_NAME_EXISTS", "OTHER", false, " OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
         "{MORAM_CONFIG_MSG_DISPLAY_NAME}"},
        {"MORAM_CONFIG_MSG_REENTER_NAME", "OTHER", false, "{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. ",
         "{MORAM_CONFIG_MSG_DISPLAY_NAME}"},
    };
    for (const bool inMemory : {false, true}) {
        for (const Refusal& each : refusals) {
            SCOPED_TRACE(each.key);
            const User::Script script = [&](User& u) {
                texts->missing = {each.key};
                if (each.noFormats) removeFormats(u, {"CSV"});
                u.changeTab("SSTab2", 0);
                u.type("txtDisplayName",
                       inMemory && std::string(each.name) == "DESK" ? "MINE" : each.name);
                expectNoText(inMemory ? kMemoryTag : kFileTag, each.key);
                user().onBox([&each](const SeenBox& box) {
                    EXPECT_EQ(box.text, each.text);
                    EXPECT_EQ(box.title, each.title);
                    EXPECT_EQ(box.style, 16);
                    return answer::Ok;
                });
                u.click("btnApply");
                texts->missing.clear();
            };
            inMemory ? openInMemory("MINE", script) : open("DESK", script);
            EXPECT_EQ(result(), 1);
        }
    }
}

TEST_P(ApplyFailures, AnUnheardFactoryRefusalIsToldToo) {
    openInMemory("DESK", [this](User& u) {
        const std::string key = "MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS";
        texts->missing = {key};
        expectNoText(kMemoryTag, key);
        user().onBox([](const SeenBox& box) {
            EXPECT_EQ(box.text, "");
            EXPECT_EQ(box.title, "{MORAM_CONFIG_MSG_ERROR}");
            return answer::Ok;
        });
        u.type("txtDisplayName", "MINE");
        u.click("btnApply");
    });
}

TEST_P(ApplyFailures, TheTextsOfTheLaunchCheckFailInSilence) {
    open("DESK", [this](User& u) {
        texts->missing = {"MORAM2_MSG_CHECK_SESSION_CONFIG", "MORAM2_MSG_APP_PATH_EMPTY"};
        user().onBox([](const SeenBox& box) {
            EXPECT_EQ(box.text, ".");
            EXPECT_EQ(box.title, "");
            EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
            return answer::Ok;
        });
        u.type("txtProgramPath", "");
        u.click("btnApply");
    });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(ApplyFailures, WithoutTheOkTextTheHiddenFileWriterPassLosesItsValues) {
    open("DESK", [this](User& u) {
        texts->missing = {"BUTTON_OK"};
        expectNoText("dlgAdvConfig:init", "BUTTON_OK");
        expectNoText(kFileTag, "BUTTON_OK");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    Rows rows = sessionRows("DESK");
    EXPECT_EQ(rows["WindowTitle"], "Parts Desk");
    EXPECT_EQ(rows["PartFormat"], kNoneRow);
    EXPECT_EQ(rows["FileName"], "");
    EXPECT_EQ(rows["FileAction"], "OverWrite");
    EXPECT_EQ(rows["WriteFileOnly"], "false");
}

// Names that are too long.

TEST_P(ApplyFailures, ANameOf32768CharactersOverflowsAndIsRefused) {
    open("DESK", [this](User& u) {
        expectFailure(kFileTag);
        expectRefusal(kForbidden, "MORAM_CONFIG_MSG_INVALID_CONFIG");
        u.type("txtDisplayName", std::string(32768, 'A'));
        u.click("btnOK");
    });
    EXPECT_EQ(user().boxes().size(), 2U);
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla"}));
}

TEST_P(ApplyFailures, InMemoryTheOverflowBearsItsOwnTag) {
    openInMemory("MINE", [this](User& u) {
        expectFailure(kMemoryTag);
        expectRefusal(kForbidden, "MORAM_CONFIG_MSG_INVALID_CONFIG");
        u.type("txtDisplayName", std::string(32768, 'A'));
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 1);
}

TEST_P(ApplyFailures, ANameOf32767CharactersPassesTheCheckInMemory) {
    const std::string name(32767, 'A');
    openInMemory("MINE", [&](User& u) {
        u.type("txtDisplayName", name);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), name);
}

TEST_P(ApplyFailures, ANameOf32767CharactersIsNoFileAndStillCostsTheOldOne) {
    renameInVain(std::string(32767, 'A'));
}

TEST_P(ApplyFailures, ANameWhosePathIsTooLongIsToldAndStillCostsTheOldFile) {
    std::string name;
    for (int i = 0; i < 90; ++i) name += "部";
    renameInVain(name);
}

// Saves and deletions that fail.

TEST_P(ApplyFailures, OnAFullDiskTheLastSaveIsToldAndTheDialogClosesWithZero) {
    const std::string before = sessionText("DESK");
    open("DESK", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        disk.failOn(Operation::Save);
        expectFailure(kFileTag);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(sessionText("DESK"), before);
}

TEST_P(ApplyFailures, AFailedLastSaveAloneLeavesWhatTheHiddenPassesSaved) {
    open("DESK", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        disk.failOn(Operation::Save, "", 2);
        expectFailure(kFileTag);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

TEST_P(ApplyFailures, FailedSavesOfTheHiddenPassesAreSilent) {
    open("DESK", [this](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        disk.failOn(Operation::Save, "", 0, 2);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

TEST_P(ApplyFailures, WithTheLaunchDisabledAFullDiskIsNotToldAtAll) {
    disableLaunch();
    const std::string before = sessionText("DESK");
    open("DESK", [this](User& u) {
        u.tick("chkReverseList");
        disk.failOn(Operation::Save);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionText("DESK"), before);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(ApplyFailures, WithTheLaunchDisabledOnlyTheSaveOfTheRenameIsTold) {
    disableLaunch();
    open("DESK", [this](User& u) {
        disk.failOn(Operation::Save);
        expectFailure(kFileTag);
        u.type("txtDisplayName", "BENCH");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "BENCH");
    EXPECT_EQ(sessionFiles(), Names{});
}

TEST_P(ApplyFailures, AfterASilentApplyTheNextOneTellsItsFailuresAgain) {
    disableLaunch();
    open("DESK", [this](User& u) {
        u.click("btnApply");
        expectRefusal("{MORAM_CONFIG_MSG_ENTER_DISPLAY_NAME}", "MORAM_CONFIG_MSG_DISPLAY_NAME");
        u.type("txtDisplayName", "");
        u.click("btnApply");
        disk.failOn(Operation::Save);
        expectFailure(kFileTag);
        u.type("txtDisplayName", "BENCH");
        u.click("btnApply");
    });
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(ApplyFailures, TheOldFileIsDeletedThoughTheNewOneCouldNotBeSaved) {
    disk.failOn(Operation::Save);
    renameInVain("BENCH");
}

TEST_P(ApplyFailures, AFailedSaveOfTheRenameIsMadeUpForByTheLaterOnes) {
    open("DESK", [this](User& u) {
        disk.failOn(Operation::Save, "", 0, 1);
        expectFailure(kFileTag);
        u.type("txtDisplayName", "BENCH");
        u.click("btnOK");
    });
    EXPECT_EQ(sessionFiles(), (Names{"BENCH.vla"}));
    EXPECT_EQ(sessionRows("BENCH")["CommandLineArgs"], "/list /quiet");
}

TEST_P(ApplyFailures, AnOldFileThatCannotBeDeletedIsToldAndStays) {
    open("DESK", [this](User& u) {
        disk.failOn(Operation::Remove);
        expectFailure(kFileTag);
        u.type("txtDisplayName", "BENCH");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "BENCH");
    EXPECT_EQ(sessionFiles(), (Names{"BENCH.vla", "DESK.vla"}));
}

TEST_P(ApplyFailures, AFolderInTheFilesPlaceIsNoExistingNameButCannotBeSavedOnto) {
    memory->makeFolder("/store/MORAM/BENCH.vla");
    renameInVain("BENCH");
    EXPECT_TRUE(memory->folderExists("/store/MORAM/BENCH.vla"));
}

TEST_P(ApplyFailures, AMissingSessionFolderIsTold) {
    open("DESK", [this](User& u) {
        ConfigGlobalModule::g_SessionFolder = "/elsewhere/MORAM\\";
        expectFailure(kFileTag);
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_FALSE(memory->folderExists("/elsewhere/MORAM"));
}

TEST_P(ApplyFailures, ASessionOpenedWithoutANameHasNoOldFileToDelete) {
    open("", [this](User& u) {
        fillIn(u, "NEW");
        expectFailure(kFileTag);
        u.click("btnApply");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionName(), "NEW");
    EXPECT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla", "NEW.vla"}));
    EXPECT_EQ(sessionRows("NEW")["FORMAT1"], "CSV");
}

TEST_P(ApplyFailures, ASessionOpenedWithoutANameTakesAFileOfTheExtensionAloneAway) {
    putSession("", {});
    open("", [](User& u) {
        fillIn(u, "NEW");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionFiles(), (Names{"DESK.vla", "NEW.vla"}));
}

TEST_P(ApplyFailures, ASessionWhoseFileVanishedMeanwhileIsWrittenAgain) {
    open("DESK", [this](User& u) {
        memory->remove(ItemPath::item(sessionFolder, "DESK"));
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/list /quiet");
}

TEST_P(ApplyFailures, InMemoryAFactoryFormatThatCannotBeReadIsToldByItsOwnTag) {
    memory->save(ItemPath::item(formatFolder, "CSV"), "<broken");
    openInMemory("MINE", [this](User& u) {
        expectFailure("ConfigGlobalModule:AddFDToConfigPartFormats");
        u.click("btnOK");
    });
    EXPECT_EQ(result(), 0);
    EXPECT_EQ(ConfigGlobalModule::g_PartFormats.Count(), 0U);
    EXPECT_EQ(ConfigGlobalModule::g_Session->GetRow("FORMAT1")[1], "CSV");
}

/// A dialog whose title bar fails to go, which only a view of its own can bring about.
class LeavingFailures : public FullSessionDesk {
  protected:
    void SetUp() override {
        FullSessionDesk::SetUp();
        m_failing = std::make_shared<FailingPaint>();
        m_failing->kind = ControlKind::FormCaption;
        installView(m_failing);
    }
    void TearDown() override {
        EXPECT_NO_THROW(m_failing->user().finish());
        FullSessionDesk::TearDown();
    }
    /// Presses a button that closes the dialog, and expects one failure box of this procedure.
    long leaveBy(const std::string& button, const std::string& procedure) {
        m_failing->user().onBox([&](const SeenBox& box) {
            EXPECT_EQ(box.text, failureText("UnifrmMORAMConfig:" + procedure, "no paint"));
            return answer::Ok;
        });
        m_failing->user().onForm("frmMORAMConfig", [&](User& u) {
            m_failing->failing = "frmMORAMConfig";
            u.click(button);
        });
        std::string name = "DESK";
        return component.showMORAMConfigDlg(name);
    }

  private:
    std::shared_ptr<FailingPaint> m_failing;
};
INSTANTIATE_TEST_SUITE_P(Views, LeavingFailures, ::testing::Values("Scripted"));

TEST_P(LeavingFailures, OkTellsThatTheDialogCouldNotBeLeftCleanlyAndItsResultStands) {
    EXPECT_EQ(leaveBy("btnOK", "btnOK_Click"), 0);
}

TEST_P(LeavingFailures, CancelTellsItByItsOwnTag) {
    EXPECT_EQ(leaveBy("btnCancel", "btnCancel_Click"), 1);
}

}  // namespace
}  // namespace wynconfig
