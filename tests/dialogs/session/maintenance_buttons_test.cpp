// The maintenance dialog at work: its way in from the host, and its buttons New, Edit and Delete.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/session/frmMORAMMaintenance.h"
#include "support/dialog_checks.h"
#include "support/failing_views.h"
#include "support/session_list_desk.h"

namespace wynconfig {
namespace {

class MaintenanceButtons : public SessionListDesk {
  protected:
    static inline const SessionRows kRows{"lstAvailableMORAMs2"};
    static inline const std::string kLoadTag = "frmMORAMMaintenance:loadLstAvailableMORAMs";
    static inline const std::string kNewTag = "frmMORAMMaintenance:btnNew_Click";
    static inline const std::string kRemoveTag = "frmMORAMMaintenance:btnRemove_Click";

    /// Deletes sessions in an otherwise fresh dialog, saying Yes each time.
    void confirmDeletions(const Names& sessions) {
        maintain([&](User& u) {
            for (const std::string& session : sessions) {
                u.onBox(answer::Yes);
                kRows.act(u, session, "btnDelete");
            }
            u.click("btnCancel");
        });
    }
    /// Deletes "B", where something fails behind the Yes.
    /// @param failures  the number of boxes that tell so
    void deleteInVain(std::size_t failures) {
        user().onBox(answer::Yes);
        for (std::size_t i = 0; i < failures; ++i) user().onBox();
        maintain([](User& u) {
            kRows.act(u, "B", "btnDelete");
            EXPECT_EQ(kRows.names(u), (Names{"A", "C"})) << "the row goes whatever failed";
            EXPECT_FALSE(kRows.anySelected(u));
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), failures + 1);
        for (std::size_t i = 1; i <= failures; ++i)
            EXPECT_TRUE(isFailureOf(user().boxes()[i].text, kRemoveTag)) << user().boxes()[i].text;
    }
};
ON_EVERY_VIEW(MaintenanceButtons);

// The way in and out.

TEST_P(MaintenanceButtons, TheHostsNameIsSelectedInUpperCaseAndTheChosenOneHandedBack) {
    EXPECT_EQ(maintain(
                  [](User& u) {
                      EXPECT_EQ(kRows.selected(u), "B");
                      u.click("btnOK");
                  },
                  "b"),
              0);
    EXPECT_EQ(name, "B");
    EXPECT_EQ(maintain(
                  [](User& u) {
                      u.pick(kRows.list, "C");
                      u.click("btnOK");
                  },
                  "b"),
              0);
    EXPECT_EQ(name, "C");
}

TEST_P(MaintenanceButtons, CancelHandsBackNoName) {
    EXPECT_EQ(maintain(cancel, "b"), 1);
    EXPECT_EQ(name, "");
}

TEST_P(MaintenanceButtons, TheFrameHandsBackTheNameInUpperCase) {
    const auto pickAndClose = [](User& u) {
        u.pick(kRows.list, "C");
        u.closeByFrame();
    };
    EXPECT_EQ(maintain(pickAndClose, "b"), 1);
    EXPECT_EQ(name, "B");
    EXPECT_EQ(maintain(pickAndClose, "gone"), 1);
    EXPECT_EQ(name, "GONE");
    EXPECT_EQ(maintain(pickAndClose), 1);
    EXPECT_EQ(name, "");
}

TEST_P(MaintenanceButtons, ReadingTheAnswerDoesNotLoadTheClosedDialogAgain) {
    maintain(ok);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_MAINT_LBL_SELECTSESSION"),
              1);
}

TEST_P(MaintenanceButtons, AnEmptyFolderLeavesOnlyNewToDo) {
    for (const char* session : {"A", "B", "C"}) removeSession(session);
    EXPECT_EQ(maintain([](User& u) {
                  for (const std::string button : {"btnEdit", "btnDelete"}) {
                      u.click(button);
                      EXPECT_TRUE(u.see(button).focus);
                  }
                  u.click("btnOK");
              }),
              1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (Names{"frmMORAMMaintenance"}));
}

TEST_P(MaintenanceButtons, ADialogThatCannotBeShownIsTold) {
    const auto view = std::make_shared<BrokenView>();
    view->failsToShow = "*";
    installView(view);
    name = "b";
    EXPECT_EQ(component.showMORAMMaintenanceDlg(name), 1);
    EXPECT_EQ(name, "B");
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText("WYNConfig:showMORAMMaintenanceDlg", "no screen"));
}

// New.

TEST_P(MaintenanceButtons, ANewSessionIsSelectedInTheListThatHasTheFocus) {
    announceAdding("bench");
    announceConfiguring(ok);
    EXPECT_EQ(maintain([](User& u) {
                  u.click("btnNew");
                  EXPECT_EQ(kRows.names(u), (Names{"A", "B", "BENCH", "C"}));
                  EXPECT_EQ(kRows.selected(u), "BENCH");
                  EXPECT_TRUE(kRows.focused(u));
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(name, "BENCH");
    EXPECT_TRUE(sessionExists("BENCH"));
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(MaintenanceButtons, ANewSessionThatEndsOnAnotherNameIsSelectedByThat) {
    announceAdding("bench");
    announceRenaming("desk");
    maintain([](User& u) {
        u.click("btnNew");
        EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C", "DESK"}));
        EXPECT_EQ(kRows.selected(u), "DESK");
        u.click("btnCancel");
    });
}

TEST_P(MaintenanceButtons, NewStartsWithoutANameWhateverIsSelected) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtName").text, "");
        u.click("btnCancel");
    });
    maintain(
        [](User& u) {
            u.click("btnNew");
            u.click("btnCancel");
        },
        "B");
}

TEST_P(MaintenanceButtons, ACancelledNewReloadsTheListAndSelectsNothing) {
    user().onForm("frmAddMORAMConfig", cancel);
    EXPECT_EQ(maintain(
                  [this](User& u) {
                      putSession("ADDED MEANWHILE", {});
                      removeSession("C");
                      u.click("btnNew");
                      EXPECT_EQ(kRows.names(u), (Names{"A", "ADDED MEANWHILE", "B"}));
                      EXPECT_FALSE(kRows.anySelected(u));
                      EXPECT_TRUE(u.see("btnNew").focus);
                      u.click("btnOK");
                  },
                  "B"),
              1);
    EXPECT_EQ(name, "") << "OK without a selected row";
}

TEST_P(MaintenanceButtons, ANewSessionCancelledInItsSecondDialogIsNotListed) {
    announceAdding("bench");
    announceConfiguring(cancel);
    maintain([this](User& u) {
        u.click("btnNew");
        EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
        EXPECT_FALSE(kRows.anySelected(u));
        EXPECT_FALSE(sessionExists("BENCH"));
        u.click("btnCancel");
    });
}

TEST_P(MaintenanceButtons, ANewNameWithoutARowIsToldAndTheListGetsTheFocusAllTheSame) {
    // The add dialog, closed by its frame, goes on with the name of a session that is there, in
    // upper case; the list shows the file's own spelling.
    putFullSession("mixed", {"CSV"});
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "mixed");
        u.closeByFrame();
    });
    announceConfiguring(ok);
    user().onBox();
    maintain([](User& u) {
        u.click("btnNew");
        EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C", "mixed"}));
        EXPECT_FALSE(kRows.anySelected(u));
        EXPECT_TRUE(kRows.focused(u));
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0],
                  failureText(kNewTag, "The list has no row of the key \"MIXED\"."));
}

// Edit.

TEST_P(MaintenanceButtons, EditOpensTheSelectedSessionAndSelectsItAgain) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "B");
        u.type("txtCommandLineArgs", "/edited");
        u.click("btnOK");
    });
    maintain([this](User& u) {
        u.pick(kRows.list, "B");
        putSession("ADDED MEANWHILE", {});
        u.click("btnEdit");
        EXPECT_EQ(kRows.names(u), (Names{"A", "ADDED MEANWHILE", "B", "C"}));
        EXPECT_EQ(kRows.selected(u), "B");
        EXPECT_TRUE(kRows.focused(u));
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionRows("B")["CommandLineArgs"], "/edited");
}

TEST_P(MaintenanceButtons, ARenamedSessionIsSelectedByItsNewName) {
    announceRenaming("z");
    EXPECT_EQ(maintain(
                  [](User& u) {
                      u.click("btnEdit");
                      EXPECT_EQ(kRows.names(u), (Names{"A", "C", "Z"}));
                      EXPECT_EQ(kRows.selected(u), "Z");
                      EXPECT_TRUE(kRows.focused(u));
                      u.click("btnOK");
                  },
                  "B"),
              0);
    EXPECT_EQ(name, "Z");
}

TEST_P(MaintenanceButtons, ACancelledEditReloadsTheListAndSelectsTheSessionAgain) {
    announceConfiguring(cancel);
    maintain(
        [this](User& u) {
            removeSession("A");
            u.click("btnEdit");
            EXPECT_EQ(kRows.names(u), (Names{"B", "C"}));
            EXPECT_EQ(kRows.selected(u), "B");
            EXPECT_TRUE(kRows.focused(u));
            u.click("btnCancel");
        },
        "B");
}

TEST_P(MaintenanceButtons, AnEditedNameWithoutARowEndsTheHandlerWithoutABox) {
    putFullSession("mixed", {"CSV"});
    announceConfiguring(ok);
    EXPECT_EQ(maintain([](User& u) {
                  kRows.act(u, "mixed", "btnEdit");
                  EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C", "mixed"})) << "reloaded before";
                  EXPECT_FALSE(kRows.anySelected(u));
                  EXPECT_TRUE(u.see("btnEdit").focus);
                  u.click("btnOK");
              }),
              1);
    EXPECT_EQ(name, "");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(MaintenanceButtons, EditingASessionThatIsGoneTakesItsRowAway) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        u.click("btnCancel");
    });
    maintain(
        [this](User& u) {
            removeSession("B");
            u.click("btnEdit");
            EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
            EXPECT_FALSE(kRows.anySelected(u));
            EXPECT_TRUE(u.see("btnEdit").focus);
            u.click("btnCancel");
        },
        "B");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(MaintenanceButtons, ARenamingRefusedHalfwayAndCancelledLeavesNoSelection) {
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "z");
        u.type("txtProgramPath", "/no/such.exe");
        u.onBox();
        u.click("btnOK");
        u.click("btnCancel");
    });
    maintain(
        [](User& u) {
            u.click("btnEdit");
            EXPECT_EQ(kRows.names(u), (Names{"A", "C", "Z"})) << "the renaming stands";
            EXPECT_FALSE(kRows.anySelected(u)) << "the old name came back";
            u.click("btnCancel");
        },
        "B");
}

TEST_P(MaintenanceButtons, ASessionWithoutANameComesBackWithoutOne) {
    putFullSession("", {"CSV"});
    announceConfiguring(cancel);
    maintain([](User& u) {
        EXPECT_EQ(kRows.names(u), (Names{"", "A", "B", "C"}));
        u.click("btnEdit");
        EXPECT_EQ(kRows.names(u), (Names{"", "A", "B", "C"}));
        EXPECT_FALSE(kRows.anySelected(u));
        EXPECT_TRUE(u.see("btnEdit").focus);
        u.click("btnCancel");
    });
}

// Delete.

TEST_P(MaintenanceButtons, ADeletedSessionMovesAsideAndNothingIsSelected) {
    const std::string before = sessionText("B");
    const std::string catalogue = memory->read(ItemPath{sessionFolder, "MORAM.vls"});
    user().onBox([&](const SeenBox& box) {
        EXPECT_EQ(box.text, "{MORAM_MAINT_MSG_DELETE_CONFIG}");
        EXPECT_EQ(box.title, "{MORAM_CONFIG_MSG_ARE_YOU_SURE}");
        EXPECT_EQ(box.style, 4);
        EXPECT_EQ(box.okCaption, "");
        EXPECT_TRUE(sessionExists("B"));
        EXPECT_FALSE(memory->folderExists(deletedFolder));
        return answer::Yes;
    });
    EXPECT_EQ(maintain([](User& u) {
                  kRows.act(u, "B", "btnDelete");
                  EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
                  EXPECT_FALSE(kRows.anySelected(u));
                  EXPECT_TRUE(u.see("btnDelete").focus);
                  u.click("btnOK");
              }),
              1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(sessionFiles(), (Names{"A.vla", "C.vla"}));
    EXPECT_EQ(memory->listItems(deletedFolder), (Names{"B.vla"}));
    EXPECT_EQ(textKeptAside("B"), before);
    EXPECT_EQ(memory->read(ItemPath{sessionFolder, "MORAM.vls"}), catalogue);
}

TEST_P(MaintenanceButtons, ADeletionMovesNoFocusAndReloadsNothing) {
    user().onBox(answer::Yes);
    maintain([this](User& u) {
        u.pick(kRows.list, "B");
        putSession("ADDED MEANWHILE", {});
        removeSession("A");
        u.bareClick("btnDelete");
        EXPECT_TRUE(kRows.focused(u));
        EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
        u.click("btnCancel");
    });
}

TEST_P(MaintenanceButtons, NoLeavesFileAndListAsTheyWere) {
    const std::string before = sessionText("B");
    user().onBox(answer::No);
    maintain([this](User& u) {
        disk.resetCounts();
        kRows.act(u, "B", "btnDelete");
        EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
        EXPECT_EQ(kRows.selected(u), "B");
        for (const Operation each :
             {Operation::Read, Operation::Save, Operation::Remove, Operation::MakeFolder})
            EXPECT_EQ(disk.count(each), 0U);
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionText("B"), before);
    EXPECT_FALSE(memory->folderExists(deletedFolder));
}

TEST_P(MaintenanceButtons, TheSessionAskedForIsDeletedWhateverBecomesOfTheListMeanwhile) {
    frmMORAMMaintenance form;
    user().onBox([&](const SeenBox&) {
        form.lstAvailableMORAMs2.remove("A");
        return answer::Yes;
    });
    announceMaintenance([](User& u) {
        kRows.act(u, "B", "btnDelete");
        EXPECT_EQ(kRows.names(u), Names{"C"});
        u.click("btnCancel");
    });
    form.Show();
    EXPECT_EQ(sessionFiles(), (Names{"A.vla", "C.vla"}));
    EXPECT_TRUE(isKeptAside("B"));
}

TEST_P(MaintenanceButtons, WithNothingSelectedNeitherEditNorDeleteDoesAnything) {
    user().onBox(answer::Yes);
    maintain([](User& u) {
        kRows.act(u, "B", "btnDelete");
        u.click("btnDelete");
        u.click("btnEdit");
        EXPECT_TRUE(u.see("btnEdit").focus);
        EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
        u.click("btnCancel");
    });
    EXPECT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().forms(), (Names{"frmMORAMMaintenance"}));
    EXPECT_EQ(sessionFiles(), (Names{"A.vla", "C.vla"}));
}

TEST_P(MaintenanceButtons, AfterADeletionAnotherSessionCanBeChosen) {
    user().onBox(answer::Yes);
    EXPECT_EQ(maintain([](User& u) {
                  kRows.act(u, "A", "btnDelete");
                  u.pick(kRows.list, "C");
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(name, "C");
}

TEST_P(MaintenanceButtons, DeletingTheOnlySessionLeavesNothingToChoose) {
    removeSession("B");
    removeSession("C");
    user().onBox(answer::Yes);
    EXPECT_EQ(maintain([](User& u) {
                  u.click("btnDelete");
                  EXPECT_TRUE(kRows.names(u).empty());
                  u.click("btnOK");
              }),
              1);
    EXPECT_EQ(name, "");
}

TEST_P(MaintenanceButtons, ASecondDeletionOfANameReplacesWhatWasKeptAside) {
    confirmDeletions({"B"});
    putSession("B", {{"ProgramPath", "the second one"}});
    const std::string second = sessionText("B");
    confirmDeletions({"B"});
    EXPECT_EQ(user().boxes().size(), 2U) << "that the folder is there already is not told";
    EXPECT_EQ(textKeptAside("B"), second);
    EXPECT_EQ(memory->listItems(deletedFolder), (Names{"B.vla"}));
}

TEST_P(MaintenanceButtons, WhatWasDeletedIsNotListed) {
    confirmDeletions({"A", "B"});
    maintain([](User& u) {
        EXPECT_EQ(kRows.names(u), (Names{"C"}));
        u.click("btnCancel");
    });
}

TEST_P(MaintenanceButtons, ADeletedFileOfMixedCaseIsKeptAsideInUpperCase) {
    putFullSession("mixed", {"CSV"});
    confirmDeletions({"mixed"});
    EXPECT_FALSE(sessionExists("mixed"));
    EXPECT_EQ(memory->listItems(deletedFolder), (Names{"MIXED.vla"}));
}

TEST_P(MaintenanceButtons, DeletionIsTheSameInTheInMemoryMode) {
    workInMemory();
    confirmDeletions({"B"});
    EXPECT_FALSE(sessionExists("B"));
    EXPECT_TRUE(isKeptAside("B"));
    EXPECT_TRUE(ConfigGlobalModule::g_DatasetMode);
}

TEST_P(MaintenanceButtons, AFileInTheFoldersPlaceDoesNotStopTheDeletion) {
    memory->save(ItemPath{sessionFolder, "deleted"}, "a file");
    deleteInVain(1);
    EXPECT_FALSE(sessionExists("B"));
    EXPECT_EQ(memory->read(ItemPath{sessionFolder, "deleted"}), "a file");
}

TEST_P(MaintenanceButtons, AFolderThatCannotBeMadeIsToldByTheSaveAlone) {
    disk.failOn(Operation::MakeFolder);
    deleteInVain(1);
    EXPECT_FALSE(sessionExists("B"));
}

TEST_P(MaintenanceButtons, AFailedSaveDoesNotStopTheDeletion) {
    disk.failOn(Operation::Save, "/deleted/");
    deleteInVain(1);
    EXPECT_FALSE(sessionExists("B"));
    EXPECT_FALSE(isKeptAside("B"));
}

TEST_P(MaintenanceButtons, ASessionThatCannotBeLoadedIsDeletedAndAnEmptyRecordKeptAside) {
    spoilSession("B");
    deleteInVain(1);
    EXPECT_FALSE(sessionExists("B"));
    Dataset kept;
    kept.Load(ItemPath::item(deletedFolder, "B"));
    EXPECT_EQ(kept.Name(), "");
    EXPECT_TRUE(kept.Rows().empty());
}

TEST_P(MaintenanceButtons, ASessionThatCannotBeLoadedIsNotKeptAsideAsTheOneDeletedBefore) {
    const std::string before = sessionText("A");
    spoilSession("B");
    user().onBox(answer::Yes);
    user().onBox(answer::Yes);
    user().onBox();
    maintain([](User& u) {
        kRows.act(u, "A", "btnDelete");
        kRows.act(u, "B", "btnDelete");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 3U);
    EXPECT_TRUE(isFailureOf(user().boxes()[2].text, kRemoveTag)) << user().boxes()[2].text;
    EXPECT_EQ(sessionFiles(), (Names{"C.vla"}));
    EXPECT_EQ(textKeptAside("A"), before);
    Dataset kept;
    kept.Load(ItemPath::item(deletedFolder, "B"));
    EXPECT_EQ(kept.Name(), "");
    EXPECT_TRUE(kept.Rows().empty());
}

TEST_P(MaintenanceButtons, AFileThatCannotBeDeletedIsListedAgainAtTheNextLoad) {
    const std::string before = sessionText("B");
    disk.failOn(Operation::Remove);
    deleteInVain(1);
    EXPECT_EQ(sessionText("B"), before);
    EXPECT_EQ(textKeptAside("B"), before);
    maintain([](User& u) {
        EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
        u.click("btnCancel");
    });
}

TEST_P(MaintenanceButtons, DeletingASessionThatIsGoneIsToldTwice) {
    user().onBox([this](const SeenBox&) {
        removeSession("B");
        return answer::Yes;
    });
    user().onBox();
    user().onBox();
    maintain([](User& u) {
        kRows.act(u, "B", "btnDelete");
        EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 3U);
    for (const std::size_t i : {1U, 2U})
        expectFailure(user().boxes()[i],
                      failureText(kRemoveTag, "The file /store/MORAM/B.vla was not found."));
}

TEST_P(MaintenanceButtons, AQuestionWithoutItsTextsIsAskedAllTheSame) {
    texts->missing = {"MORAM_MAINT_MSG_DELETE_CONFIG", "MORAM_CONFIG_MSG_ARE_YOU_SURE"};
    for (const int pressed : {answer::No, answer::Yes}) {
        user().onBox();
        user().onBox();
        user().onBox(pressed);
        maintain([](User& u) {
            kRows.act(u, "B", "btnDelete");
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 3U);
        expectFailure(user().boxes()[0],
                      failureText(kRemoveTag, "no text for MORAM_MAINT_MSG_DELETE_CONFIG"));
        expectFailure(user().boxes()[1],
                      failureText(kRemoveTag, "no text for MORAM_CONFIG_MSG_ARE_YOU_SURE"));
        EXPECT_EQ(user().boxes()[2].text, "");
        EXPECT_EQ(user().boxes()[2].title, "");
        EXPECT_EQ(user().boxes()[2].style, 4);
        EXPECT_EQ(sessionExists("B"), pressed == answer::No);
        user().finish();
    }
}

/// A view whose questions get numbers that no person presses, or none at all.
class OddAnswers : public ScriptedView {
  public:
    int answered = answer::Yes;
    bool failing = false;
    std::vector<std::string> texts;

    int showMessage(const MessageRequest& box) override {
        texts.push_back(box.text);
        if ((box.style & 0xF) != boxstyle::YesNo) return answer::Ok;
        if (failing) throw Error(errc::InvalidCall, "no box");
        EXPECT_EQ(box.owner->name(), "frmMORAMMaintenance");
        EXPECT_TRUE(box.owner->visible()) << "the form that asks, not the hidden one";
        return answered;
    }
};

TEST_P(MaintenanceButtons, NothingButYesDeletes) {
    const auto view = std::make_shared<OddAnswers>();
    installView(view);
    const auto deleteB = [&] {
        view->user().onForm("frmMORAMMaintenance", [](User& u) {
            kRows.act(u, "B", "btnDelete");
            u.click("btnCancel");
        });
        component.showMORAMMaintenanceDlg(name);
        view->user().finish();
    };
    for (const int pressed : {0, 1, 2, 3, 4, 5, 7, -1, 6 + 16}) {
        view->answered = pressed;
        deleteB();
        EXPECT_TRUE(sessionExists("B")) << pressed;
    }
    view->failing = true;
    view->texts.clear();
    deleteB();
    EXPECT_TRUE(sessionExists("B")) << "a question that nobody saw";
    EXPECT_EQ(view->texts,
              (Names{"{MORAM_MAINT_MSG_DELETE_CONFIG}", failureText(kRemoveTag, "no box")}));
    view->failing = false;
    view->answered = answer::Yes;
    deleteB();
    EXPECT_FALSE(sessionExists("B"));
}

// The in-memory mode, which stays in force from an earlier call.

TEST_P(MaintenanceButtons, AnEditInTheInMemoryModeSavesNothing) {
    workInMemory();
    const std::string before = sessionText("B");
    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "/edited");
        u.click("btnOK");
    });
    maintain(
        [this](User& u) {
            disk.resetCounts();
            u.click("btnEdit");
            EXPECT_EQ(disk.count(Operation::Save), 0U);
            EXPECT_EQ(kRows.selected(u), "B");
            EXPECT_TRUE(kRows.focused(u));
            u.click("btnCancel");
        },
        "B");
    EXPECT_EQ(sessionText("B"), before);
    EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), "MINE");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(MaintenanceButtons, NewEndsTheInMemoryModeWithinTheDialog) {
    workInMemory();
    user().onForm("frmAddMORAMConfig", cancel);
    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "/edited");
        u.click("btnOK");
    });
    maintain([](User& u) {
        EXPECT_TRUE(ConfigGlobalModule::g_DatasetMode);
        u.click("btnNew");
        EXPECT_FALSE(ConfigGlobalModule::g_DatasetMode);
        kRows.act(u, "B", "btnEdit");
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionRows("B")["CommandLineArgs"], "/edited");
}

// Failures of single statements.

/// The dialog in front of a view whose list fails on demand.
class MaintenanceListFailures : public MaintenanceButtons {
  protected:
    void SetUp() override {
        MaintenanceButtons::SetUp();
        m_failing = std::make_shared<FailingPaint>();
        installView(m_failing);
    }
    void TearDown() override {
        EXPECT_NO_THROW(m_failing->user().finish());
        MaintenanceButtons::TearDown();
    }
    /// Presses a button in the dialog while each change of the list fails.
    /// @return the texts of the boxes that came up
    Names pressWhileFailing(const std::string& button, std::size_t boxes) {
        for (std::size_t i = 0; i < boxes; ++i) m_failing->user().onBox(answer::Yes);
        m_failing->user().onForm("frmMORAMMaintenance", [&](User& u) {
            m_failing->failing = "frmMORAMMaintenance";
            u.click(button);
            m_failing->failing.clear();
            listed = kRows.names(u);
            focused = kRows.focused(u);
            u.click("btnCancel");
        });
        component.showMORAMMaintenanceDlg(name);
        Names told;
        for (const SeenBox& box : m_failing->user().boxes()) told.push_back(box.text);
        return told;
    }
    User& failingUser() { return m_failing->user(); }

    Names listed;
    bool focused = false;

  private:
    std::shared_ptr<FailingPaint> m_failing;
};
INSTANTIATE_TEST_SUITE_P(Views, MaintenanceListFailures, ::testing::Values("Scripted"));

TEST_P(MaintenanceListFailures, EachStatementOfALoadIsToldByItselfAndTheRestRuns) {
    failingUser().onForm("frmAddMORAMConfig", cancel);
    const Names told = pressWhileFailing("btnNew", 5);
    EXPECT_EQ(told, Names(5, failureText(kLoadTag, "no paint")))
        << "clearing, three rows, and the refresh";
    EXPECT_EQ(listed, (Names{"A", "B", "C"}));
    EXPECT_FALSE(focused);
}

TEST_P(MaintenanceListFailures, NewTellsItsOwnStatementUnderItsOwnTag) {
    failingUser().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "B");
        u.closeByFrame();
    });
    failingUser().onForm("frmMORAMConfig", ok);
    Names expected(5, failureText(kLoadTag, "no paint"));
    expected.push_back(failureText(kNewTag, "no paint"));
    EXPECT_EQ(pressWhileFailing("btnNew", 6), expected);
    EXPECT_TRUE(focused);
}

TEST_P(MaintenanceListFailures, EditHasNoHandlingOfItsOwn) {
    failingUser().onForm("frmMORAMConfig", ok);
    EXPECT_EQ(pressWhileFailing("btnEdit", 5), Names(5, failureText(kLoadTag, "no paint")))
        << "the selecting behind the load ends the handler in silence";
    EXPECT_FALSE(focused);
}

TEST_P(MaintenanceListFailures, DeleteTellsTheRowThatCannotGo) {
    EXPECT_EQ(pressWhileFailing("btnDelete", 2),
              (Names{"{MORAM_MAINT_MSG_DELETE_CONFIG}", failureText(kRemoveTag, "no paint")}));
    EXPECT_FALSE(sessionExists("A"));
}

}  // namespace
}  // namespace wynconfig
