// The session manager's buttons Add, Delete and Edit, and the road from the host through it and the
// dialogs behind it.
#include <memory>
#include <string>

#include "support/dialog_checks.h"
#include "support/failing_views.h"
#include "support/session_list_desk.h"

namespace wynconfig {
namespace {

class SessionManagerButtons : public SessionListDesk {
  protected:
    static inline const SessionRows kRows{"lstAvailableTESessions"};
    static inline const SessionRows kMaintained{"lstAvailableMORAMs2"};
    static inline const std::string kLoadTag = "frmSessionManager:loadLstConfiguredSessions";
    static inline const std::string kNewTag = "frmSessionManager:btnNew_Click";
    static inline const std::string kRemoveTag = "frmSessionManager:btnRemove_Click";

    /// The maintenance dialog that comes up next: this session and OK.
    void announceChoice(const std::string& session) {
        announceMaintenance([session](User& u) {
            u.pick(kMaintained.list, session);
            u.click("btnOK");
        });
    }
    /// Adds a session. @return the list that the host gets
    std::string add(const std::string& sessions, const std::string& session) {
        announceChoice(session);
        return manage(sessions, [](User& u) {
            u.click("btnAdd");
            u.click("btnOK");
        });
    }
    /// Deletes a session's name. @return the list that the host gets
    std::string drop(const std::string& sessions, const std::string& session) {
        return manage(sessions, [&](User& u) {
            kRows.act(u, session, "btnDelete");
            u.click("btnOK");
        });
    }
    /// Edits a session in the dialog announced before. @return the list that the host gets
    std::string edit(const std::string& sessions, const std::string& session) {
        return manage(sessions, [&](User& u) {
            kRows.act(u, session, "btnEdit");
            u.click("btnCancel");
        });
    }
    static std::string noRow(const std::string& key) {
        return "The list has no row of the key \"" + key + "\".";
    }
};
ON_EVERY_VIEW(SessionManagerButtons);

// Add.

TEST_P(SessionManagerButtons, AnAddedSessionGoesToTheEndAndIsSelectedInTheListWithTheFocus) {
    announceChoice("B");
    EXPECT_EQ(manage("C,A",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"C", "A", "B"}));
                         EXPECT_EQ(kRows.selected(u), "B");
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnCancel");
                     }),
              "C,A,B")
        << "Cancel takes nothing back";
}

TEST_P(SessionManagerButtons, TheFirstSessionMakesTheList) {
    EXPECT_EQ(add("", "B"), "B");
}

TEST_P(SessionManagerButtons, TheMaintenanceDialogOpensWithoutANameWhateverIsSelected) {
    announceMaintenance([](User& u) {
        EXPECT_EQ(kMaintained.selected(u), "A");
        u.click("btnCancel");
    });
    manage("B,C", [](User& u) {
        kRows.act(u, "C", "btnAdd");
        u.click("btnCancel");
    });
}

TEST_P(SessionManagerButtons, AddingAHeldSessionOnlySelectsIt) {
    announceChoice("A");
    EXPECT_EQ(manage("B,A,C",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"B", "A", "C"}));
                         EXPECT_EQ(kRows.selected(u), "A");
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnOK");
                     }),
              "B,A,C");
}

TEST_P(SessionManagerButtons, AHeldSessionInOtherCaseIsAnotherName) {
    EXPECT_EQ(add("a,C", "A"), "a,C,A");
    putFullSession("mixed", {"CSV"});
    EXPECT_EQ(add("MIXED", "mixed"), "MIXED,mixed") << "as the file is spelt";
}

TEST_P(SessionManagerButtons, ACancelledAddReloadsTheListAndSelectsNothing) {
    for (const bool byFrame : {false, true}) {
        putFullSession("C", {"CSV"});
        announceMaintenance(
            [byFrame](User& u) { byFrame ? u.closeByFrame() : u.click("btnCancel"); });
        EXPECT_EQ(manage("B,C,A",
                         [this](User& u) {
                             removeSession("C");
                             u.click("btnAdd");
                             EXPECT_EQ(kRows.names(u), (Names{"B", "A"}));
                             EXPECT_FALSE(kRows.anySelected(u));
                             EXPECT_TRUE(u.see("btnAdd").focus);
                             u.click("btnOK");
                         }),
                  "B,A");
    }
}

TEST_P(SessionManagerButtons, ASessionDeletedOnTheWayLeavesTheList) {
    user().onBox(answer::Yes);
    announceMaintenance([](User& u) {
        kMaintained.act(u, "B", "btnDelete");
        u.click("btnCancel");
    });
    EXPECT_EQ(manage("A,B,C",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
                         u.click("btnCancel");
                     }),
              "A,C");
}

TEST_P(SessionManagerButtons, ASessionRenamedOnTheWayIsHeldOnlyWhenItIsChosen) {
    announceRenaming("z");
    announceMaintenance([](User& u) {
        kMaintained.act(u, "B", "btnEdit");
        u.click("btnCancel");
    });
    announceRenaming("y");
    announceMaintenance([](User& u) {
        kMaintained.act(u, "A", "btnEdit");
        u.click("btnOK");
    });
    EXPECT_EQ(manage("A,B,C",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "C"}));
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"C", "Y"}));
                         EXPECT_EQ(kRows.selected(u), "Y");
                         u.click("btnCancel");
                     }),
              "C,Y");
}

TEST_P(SessionManagerButtons, AnAddedNameWithACommaIsDroppedAndTold) {
    putFullSession("X,Y", {"CSV"});
    user().onBox();
    announceChoice("X,Y");
    EXPECT_EQ(manage("B",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"B"}));
                         EXPECT_FALSE(kRows.anySelected(u));
                         EXPECT_TRUE(kRows.focused(u)) << "the statement behind the failed one";
                         u.click("btnCancel");
                     }),
              "B");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0], failureText(kNewTag, noRow("X,Y")));
}

TEST_P(SessionManagerButtons, AnAddedNameWithACommaMayDoubleASession) {
    putFullSession("A,X", {"CSV"});
    user().onBox();
    user().onBox();
    EXPECT_EQ(add("A,B", "A,X"), "A,B,A");
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0],
                  failureText(kLoadTag, "The list has a row of the key \"A\" already."));
    expectFailure(user().boxes()[1], failureText(kNewTag, noRow("A,X")));
}

TEST_P(SessionManagerButtons, AnAddedSessionWithoutANameIsHeldButNotSelected) {
    putFullSession("", {"CSV"});
    announceChoice("");
    EXPECT_EQ(manage("A",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"A", ""}));
                         EXPECT_FALSE(kRows.anySelected(u));
                         EXPECT_TRUE(u.see("btnAdd").focus);
                         u.click("btnCancel");
                     }),
              "A,");
}

// Delete.

TEST_P(SessionManagerButtons, DeleteDropsTheNameAloneAndSelectsNothing) {
    const std::string before = sessionText("A");
    EXPECT_EQ(manage("C,A,B",
                     [this](User& u) {
                         disk.resetCounts();
                         kRows.act(u, "A", "btnDelete");
                         EXPECT_EQ(kRows.names(u), (Names{"C", "B"}));
                         EXPECT_FALSE(kRows.anySelected(u));
                         EXPECT_TRUE(u.see("btnDelete").focus);
                         for (const Operation each :
                              {Operation::Save, Operation::Remove, Operation::MakeFolder})
                             EXPECT_EQ(disk.count(each), 0U);
                         u.click("btnOK");
                     }),
              "C,B");
    EXPECT_EQ(sessionText("A"), before);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionManagerButtons, DeleteMovesNoFocus) {
    manage("A,B", [](User& u) {
        u.pick(kRows.list, "A");
        u.bareClick("btnDelete");
        EXPECT_TRUE(kRows.focused(u));
        u.click("btnCancel");
    });
}

TEST_P(SessionManagerButtons, WithNothingSelectedDeleteAndEditDoNothing) {
    EXPECT_EQ(manage("A,B,C",
                     [this](User& u) {
                         kRows.act(u, "A", "btnDelete");
                         removeSession("B");
                         u.click("btnDelete");
                         u.click("btnEdit");
                         EXPECT_TRUE(u.see("btnEdit").focus);
                         EXPECT_EQ(kRows.names(u), (Names{"B", "C"})) << "not even a reload";
                         u.click("btnOK");
                     }),
              "B,C");
    EXPECT_EQ(user().forms(), (Names{"frmSessionManager"}));
}

TEST_P(SessionManagerButtons, DeletingTheLastNameLeavesTheEmptyList) {
    EXPECT_EQ(drop("A", "A"), "");
}

TEST_P(SessionManagerButtons, DeleteActsOnTheOneSelectedRow) {
    EXPECT_EQ(manage("A,B,C",
                     [](User& u) {
                         u.pick(kRows.list, "A");
                         u.pick(kRows.list, "C");
                         u.click("btnDelete");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "B"}));
                         u.click("btnCancel");
                     }),
              "A,B");
}

TEST_P(SessionManagerButtons, EveryOccurrenceOfADeletedNameGoes) {
    user().onBox();
    EXPECT_EQ(drop("A,B,A,C", "A"), "B,C");
    EXPECT_EQ(user().boxes().size(), 1U) << "the double was told at the first load alone";
}

TEST_P(SessionManagerButtons, ADeletedNameIsComparedWithRegardToCase) {
    EXPECT_EQ(drop("A,a,B", "a"), "A,B");
    EXPECT_EQ(drop("A,a,B", "A"), "a,B");
}

TEST_P(SessionManagerButtons, ASessionThatIsGoneLeavesWithTheNextReload) {
    EXPECT_EQ(manage("A,B,C",
                     [this](User& u) {
                         removeSession("C");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
                         kRows.act(u, "A", "btnDelete");
                         EXPECT_EQ(kRows.names(u), (Names{"B"}));
                         u.click("btnCancel");
                     }),
              "B");
    EXPECT_EQ(manage("A,B",
                     [this](User& u) {
                         removeSession("B");
                         u.click("btnCancel");
                     }),
              "A,B")
        << "without a reload the name stays";
}

// Edit.

TEST_P(SessionManagerButtons, AnEditedSessionStaysInItsPlaceAndIsSelectedAgain) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "A");
        u.type("txtCommandLineArgs", "/edited");
        u.click("btnOK");
    });
    EXPECT_EQ(manage("C,A,B",
                     [this](User& u) {
                         u.pick(kRows.list, "A");
                         removeSession("C");
                         u.click("btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "B"})) << "reloaded";
                         EXPECT_EQ(kRows.selected(u), "A");
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnCancel");
                     }),
              "A,B");
    EXPECT_EQ(sessionRows("A")["CommandLineArgs"], "/edited");
}

TEST_P(SessionManagerButtons, ARenamedSessionMovesToTheEnd) {
    announceRenaming("z");
    EXPECT_EQ(manage("A,B,C",
                     [](User& u) {
                         kRows.act(u, "A", "btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"B", "C", "Z"}));
                         EXPECT_EQ(kRows.selected(u), "Z");
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnCancel");
                     }),
              "B,C,Z");
}

TEST_P(SessionManagerButtons, TheOnlySessionRenamedIsTheWholeList) {
    announceRenaming("z");
    EXPECT_EQ(edit("A", "A"), "Z");
}

TEST_P(SessionManagerButtons, ACancelledEditReloadsNothing) {
    for (const bool byFrame : {false, true}) {
        putFullSession("B", {"CSV"});
        announceConfiguring(
            [byFrame](User& u) { byFrame ? u.closeByFrame() : u.click("btnCancel"); });
        EXPECT_EQ(manage("A,B,C",
                         [this](User& u) {
                             u.pick(kRows.list, "C");
                             removeSession("B");
                             u.click("btnEdit");
                             EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
                             EXPECT_EQ(kRows.selected(u), "C");
                             EXPECT_TRUE(u.see("btnEdit").focus);
                             u.click("btnCancel");
                         }),
                  "A,B,C");
    }
}

TEST_P(SessionManagerButtons, AnAppliedEditThatIsCancelledCounts) {
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "z");
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(edit("A,B", "A"), "B,Z");
}

TEST_P(SessionManagerButtons, AnAppliedRenamingClosedByTheFrameIsNotSeen) {
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "z");
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(manage("A,B,C",
                     [this](User& u) {
                         kRows.act(u, "A", "btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "B", "C"}));
                         EXPECT_FALSE(sessionExists("A"));
                         kRows.act(u, "C", "btnDelete");
                         EXPECT_EQ(kRows.names(u), (Names{"B"}));
                         u.click("btnCancel");
                     }),
              "B");
    EXPECT_TRUE(sessionExists("Z"));
}

TEST_P(SessionManagerButtons, ANameInLowerCaseComesBackInUpperCaseAtTheEnd) {
    announceConfiguring(ok);
    EXPECT_EQ(edit("a,B", "a"), "B,A");
}

TEST_P(SessionManagerButtons, ASessionRenamedToAHeldNameStandsThereOnce) {
    announceRenaming("b");
    EXPECT_EQ(manage("A,B,C",
                     [this](User& u) {
                         removeSession("B");
                         kRows.act(u, "A", "btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"B", "C"}));
                         EXPECT_EQ(kRows.selected(u), "B");
                         u.click("btnCancel");
                     }),
              "B,C");
}

TEST_P(SessionManagerButtons, ASessionRenamedToANameWithACommaIsLostAndTold) {
    announceRenaming("x,y");
    user().onBox();
    EXPECT_EQ(manage("A,B",
                     [](User& u) {
                         kRows.act(u, "A", "btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"B"}));
                         EXPECT_FALSE(kRows.anySelected(u));
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnCancel");
                     }),
              "B");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0], failureText(kRemoveTag, noRow("X,Y")));
    EXPECT_TRUE(sessionExists("X,Y"));
}

TEST_P(SessionManagerButtons, EditingASessionThatIsGoneLeavesItInTheListUntilAReload) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        u.click("btnCancel");
    });
    EXPECT_EQ(manage("A,B",
                     [this](User& u) {
                         removeSession("A");
                         u.click("btnEdit");
                         EXPECT_EQ(kRows.names(u), (Names{"A", "B"}));
                         u.click("btnCancel");
                     }),
              "A,B");
    EXPECT_TRUE(user().boxes().empty());
}

// The in-memory mode, which stays in force from an earlier call.

TEST_P(SessionManagerButtons, AnEditInTheInMemoryModeSavesNothing) {
    workInMemory();
    const std::string before = sessionText("A");
    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "/edited");
        u.click("btnOK");
    });
    EXPECT_EQ(manage("B,A,C",
                     [this](User& u) {
                         disk.resetCounts();
                         kRows.act(u, "A", "btnEdit");
                         EXPECT_EQ(disk.count(Operation::Save), 0U);
                         EXPECT_EQ(kRows.selected(u), "A");
                         EXPECT_TRUE(kRows.focused(u));
                         u.click("btnOK");
                     }),
              "B,A,C");
    EXPECT_EQ(sessionText("A"), before);
    EXPECT_TRUE(ConfigGlobalModule::g_DatasetMode);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionManagerButtons, AddingANewSessionEndsTheInMemoryModeWithinTheDialog) {
    workInMemory();
    announceAdding("bench");
    announceConfiguring(ok);
    announceMaintenance([](User& u) {
        u.click("btnNew");
        u.click("btnOK");
    });
    announceRenaming("z");
    EXPECT_EQ(manage("A",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_FALSE(ConfigGlobalModule::g_DatasetMode);
                         kRows.act(u, "A", "btnEdit");
                         u.click("btnOK");
                     }),
              "BENCH,Z");
    EXPECT_TRUE(sessionExists("Z"));
}

// All the way.

TEST_P(SessionManagerButtons, ASessionMadeBehindTwoDialogsReachesTheHost) {
    announceMaintenance([](User& u) {
        EXPECT_EQ(u.formName(), "frmMORAMMaintenance");
        u.click("btnNew");
        EXPECT_EQ(u.formName(), "frmMORAMMaintenance");
        EXPECT_EQ(kMaintained.selected(u), "BENCH");
        u.click("btnOK");
    });
    announceAdding("bench");
    announceConfiguring([this](User& u) {
        EXPECT_EQ(u.formName(), "frmMORAMConfig");
        EXPECT_EQ(u.see("txtDisplayName").text, "BENCH");
        EXPECT_TRUE(sessionExists("BENCH"));
        u.type("txtCommandLineArgs", "/made");
        u.click("btnOK");
    });
    EXPECT_EQ(manage("C,A",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(u.formName(), "frmSessionManager");
                         EXPECT_EQ(kRows.names(u), (Names{"C", "A", "BENCH"}));
                         EXPECT_EQ(kRows.selected(u), "BENCH");
                         u.click("btnOK");
                     }),
              "C,A,BENCH");
    EXPECT_EQ(user().forms(), (Names{"frmSessionManager", "frmMORAMMaintenance",
                                     "frmAddMORAMConfig", "frmMORAMConfig"}));
    EXPECT_EQ(sessionRows("BENCH")["CommandLineArgs"], "/made");
    EXPECT_EQ(pickFrom("C,A,BENCH",
                       [](User& u) {
                           u.pick(kRows.list, "BENCH");
                           u.click("btnOK");
                       }),
              "BENCH");
}

TEST_P(SessionManagerButtons, ASessionGivenUpBehindTwoDialogsLeavesTheListAsItWas) {
    announceMaintenance([](User& u) {
        u.click("btnNew");
        EXPECT_FALSE(kMaintained.anySelected(u));
        u.click("btnOK");
    });
    announceAdding("bench");
    announceConfiguring(cancel);
    EXPECT_EQ(manage("C,A",
                     [](User& u) {
                         u.click("btnAdd");
                         EXPECT_EQ(kRows.names(u), (Names{"C", "A"}));
                         EXPECT_FALSE(kRows.anySelected(u));
                         u.click("btnOK");
                     }),
              "C,A");
    EXPECT_EQ(sessionFiles(), (Names{"A.vla", "B.vla", "C.vla"}));
}

// Failures of single statements.

/// The dialog in front of a view whose list fails on demand.
class SessionManagerListFailures : public SessionManagerButtons {
  protected:
    void SetUp() override {
        SessionManagerButtons::SetUp();
        m_failing = std::make_shared<FailingPaint>();
        installView(m_failing);
    }
    void TearDown() override {
        EXPECT_NO_THROW(failingUser().finish());
        SessionManagerButtons::TearDown();
    }
    /// Presses a button on the list "A,B" while each change of the list's rows fails.
    /// @return the texts of the boxes that came up
    Names pressWhileFailing(const std::string& button, std::size_t boxes) {
        for (std::size_t i = 0; i < boxes; ++i) failingUser().onBox();
        failingUser().onForm("frmSessionManager", [&](User& u) {
            m_failing->failing = "frmSessionManager";
            u.click(button);
            m_failing->failing.clear();
            focused = kRows.focused(u);
            u.click("btnCancel");
        });
        left = component.showConfigurableSessionManagerDlg("A,B");
        Names told;
        for (const SeenBox& box : failingUser().boxes()) told.push_back(box.text);
        return told;
    }
    User& failingUser() { return m_failing->user(); }

    std::string left;  ///< the list that the host got
    bool focused = false;

  private:
    std::shared_ptr<FailingPaint> m_failing;
};
INSTANTIATE_TEST_SUITE_P(Views, SessionManagerListFailures, ::testing::Values("Scripted"));

/// So many failures of a load, and one of the statement behind it.
Names toldBy(std::size_t ofLoad, const std::string& atLoad, const std::string& behind) {
    Names told(ofLoad, atLoad);
    told.push_back(behind);
    return told;
}

TEST_P(SessionManagerListFailures, AddTellsEachStatementUnderTheTagOfItsProcedure) {
    failingUser().onForm("frmMORAMMaintenance", [](User& u) {
        u.pick(kMaintained.list, "C");
        u.click("btnOK");
    });
    const Names told = pressWhileFailing("btnAdd", 5);
    EXPECT_EQ(told, toldBy(4, failureText(kLoadTag, "no paint"), failureText(kNewTag, "no paint")));
    EXPECT_EQ(left, "A,B,C");
    EXPECT_TRUE(focused);
}

TEST_P(SessionManagerListFailures, DeleteTellsItsLoad) {
    EXPECT_EQ(pressWhileFailing("btnDelete", 2), Names(2, failureText(kLoadTag, "no paint")));
    EXPECT_EQ(left, "B");
}

TEST_P(SessionManagerListFailures, EditTellsItsSelectingUnderTheTagOfDelete) {
    failingUser().onForm("frmMORAMConfig", ok);
    EXPECT_EQ(pressWhileFailing("btnEdit", 4),
              toldBy(3, failureText(kLoadTag, "no paint"), failureText(kRemoveTag, "no paint")));
    EXPECT_EQ(left, "A,B");
    EXPECT_TRUE(focused);
}

}  // namespace
}  // namespace wynconfig
