// The session manager as it opens and closes: what it makes of the host's list of sessions, and
// what the host gets back.
#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/session/frmSessionManager.h"
#include "support/dialog_checks.h"
#include "support/failing_views.h"
#include "support/session_list_desk.h"

namespace wynconfig {
namespace {

class SessionManager : public SessionListDesk {
  protected:
    static inline const SessionRows kRows{"lstAvailableTESessions"};
    static inline const std::string kLoadTag = "frmSessionManager:loadLstConfiguredSessions";

    /// The rows that a list of sessions brings up, in a dialog that is cancelled.
    Names shown(const std::string& sessions) {
        Names names;
        left = manage(sessions, [&](User& u) {
            names = kRows.names(u);
            u.click("btnCancel");
        });
        return names;
    }
    /// What is left of a list after its load alone.
    std::string loaded(const std::string& sessions) { return manage(sessions, cancel); }
    static bool anyConfigButton(User& u) {
        return u.see("btnAdd").visible || u.see("btnDelete").visible || u.see("btnEdit").visible;
    }
    static bool allConfigButtons(User& u) {
        return u.see("btnAdd").visible && u.see("btnDelete").visible && u.see("btnEdit").visible;
    }

    std::string left;  ///< what the host got back from `shown`
};
ON_EVERY_VIEW(SessionManager);

// Opening.

TEST_P(SessionManager, ShowsTheSessionsInTheOrderOfTheList) {
    for (const bool inMemory : {false, true}) {
        ConfigGlobalModule::g_DatasetMode = inMemory;
        EXPECT_EQ(manage("C,A,B",
                         [](User& u) {
                             const Sight list = u.see(kRows.list);
                             EXPECT_EQ(list.rows,
                                       (std::vector<SeenRow>{{"C", "C"}, {"A", "A"}, {"B", "B"}}));
                             EXPECT_EQ(list.selected, 1U);
                             EXPECT_TRUE(list.visible);
                             EXPECT_EQ(list.background, Background::Window);
                             EXPECT_EQ(u.formTitle(), "{SESSION_MANAGER_TITLE}");
                             u.click("btnCancel");
                         }),
                  "C,A,B");
    }
}

TEST_P(SessionManager, TheButtonsForEditingAreThereInTheConfigurableUseAlone) {
    pickFrom("A,B", [](User& u) {
        EXPECT_FALSE(anyConfigButton(u));
        EXPECT_TRUE(u.canUse("btnOK"));
        EXPECT_TRUE(u.canUse("btnCancel"));
        u.click("btnCancel");
    });
    manage("A,B", [](User& u) {
        EXPECT_TRUE(allConfigButtons(u));
        u.click("btnCancel");
    });
    pickFrom("", [](User& u) {
        EXPECT_FALSE(anyConfigButton(u));
        u.click("btnCancel");
    });
}

TEST_P(SessionManager, TheListIsLoadedByTheInitWithTheHostsSessions) {
    frmSessionManager form;
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(texts->asked.empty());
    form.init(true, "B,A");
    EXPECT_TRUE(form.loaded());
    EXPECT_EQ(form.Result(), 1);
    EXPECT_EQ(form.lstAvailableTESessions.count(), 2U);
    EXPECT_EQ(form.lstAvailableTESessions.selectedItem()->text, "B");
    EXPECT_EQ(form.SessionName(), "");
    EXPECT_TRUE(form.UniCaption1.bound());
    EXPECT_EQ(form.caption(), "{SESSION_MANAGER_TITLE}");
    form.Unload();
    EXPECT_FALSE(form.UniCaption1.bound());
    EXPECT_EQ(form.Sessions(), "B,A");
    EXPECT_FALSE(form.loaded()) << "reading an answer loads nothing";
}

TEST_P(SessionManager, TheColumnKeepsTheLabelsDesignText) {
    frmSessionManager form;
    form.init(false, "A");
    EXPECT_EQ(form.lblSelectSession.caption(), "{MORAM_MAINT_LBL_SELECTSESSION}");
    const auto& columns = form.lstAvailableTESessions.columns();
    ASSERT_EQ(columns.size(), 1U);
    EXPECT_EQ(columns[0].key, "NAME");
    EXPECT_EQ(columns[0].text, "Select a session");
    EXPECT_EQ(columns[0].width, 5000);
    EXPECT_EQ(columns[0].tag, "Stores the name of the item");
    expectFontEverywhere(form, texts->font);
    EXPECT_EQ(form.lstAvailableTESessions.row(1).font, form.font());
}

TEST_P(SessionManager, CaptionsComeByKeyOrAllByDefault) {
    expectTexts<frmSessionManager>(*texts, kManagerTexts);
}

TEST_P(SessionManager, OpensInEnglishWithoutAResourceManager) {
    component.InitResourceManager(nullptr);
    EXPECT_EQ(pickFrom("A,B",
                       [](User& u) {
                           EXPECT_EQ(u.formTitle(), "Session Manager");
                           EXPECT_EQ(u.see("lblSelectSession").caption, "Select a session");
                           u.click("btnOK");
                       }),
              "A");
    EXPECT_TRUE(user().boxes().empty());
}

// What the host gets back.

TEST_P(SessionManager, ThePlainUseGivesTheSessionThatWasPicked) {
    EXPECT_EQ(pickFrom("C,A,B", ok), "C");
    EXPECT_EQ(pickFrom("C,A,B",
                       [](User& u) {
                           u.pick(kRows.list, "B");
                           u.pressEnter();
                       }),
              "B");
}

TEST_P(SessionManager, ThePlainUseGivesNothingWithoutOk) {
    EXPECT_EQ(pickFrom("A,B", cancel), "");
    EXPECT_EQ(pickFrom("A,B", [](User& u) { u.pressEscape(); }), "");
    EXPECT_EQ(pickFrom("A,B", [](User& u) { u.closeByFrame(); }), "");
}

TEST_P(SessionManager, OkWithNothingSelectedGivesNothing) {
    for (const std::string sessions : {"", "GONE", ",,"}) {
        EXPECT_EQ(pickFrom(sessions,
                           [](User& u) {
                               EXPECT_TRUE(kRows.names(u).empty());
                               EXPECT_TRUE(u.see(kRows.list).visible);
                               u.click("btnOK");
                           }),
                  "")
            << sessions;
    }
}

TEST_P(SessionManager, TheResultIsZeroOnlyAfterOkOnASelectedSession) {
    const auto resultOf = [this](const std::string& sessions, const User::Script& script) {
        user().onForm("frmSessionManager", script);
        frmSessionManager form;
        form.init(true, sessions);
        form.Show();
        return form.Result();
    };
    EXPECT_EQ(resultOf("A", ok), 0);
    EXPECT_EQ(resultOf("", ok), 1);
    EXPECT_EQ(resultOf("A", cancel), 1);
    EXPECT_EQ(resultOf("A", [](User& u) { u.closeByFrame(); }), 1);
}

TEST_P(SessionManager, TheConfigurableUseGivesTheListWhicheverWayItCloses) {
    EXPECT_EQ(manage("B,A,GONE", ok), "B,A");
    EXPECT_EQ(manage("B,A,GONE", cancel), "B,A");
    EXPECT_EQ(manage("B,A,GONE", [](User& u) { u.closeByFrame(); }), "B,A");
    EXPECT_EQ(manage("", ok), "");
    EXPECT_EQ(manage("GONE", ok), "");
}

TEST_P(SessionManager, ReadingTheAnswerDoesNotLoadTheClosedDialogAgain) {
    pickFrom("A", ok);
    manage("A", ok);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_MAINT_LBL_SELECTSESSION"),
              2);
}

TEST_P(SessionManager, ShownASecondTimeItSelectsTheNameItEndedOn) {
    frmSessionManager form;
    form.init(true, "A,B,C");
    user().onForm("frmSessionManager", [](User& u) {
        u.pick(kRows.list, "B");
        u.click("btnOK");
    });
    form.Show();
    user().onForm("frmSessionManager", [](User& u) {
        EXPECT_EQ(kRows.selected(u), "B");
        u.click("btnCancel");
    });
    form.Show();
    EXPECT_EQ(form.SessionName(), "");
}

// The list of sessions.

TEST_P(SessionManager, ASessionWithoutAFileLeavesTheListWithoutAWord) {
    removeSession("B");
    EXPECT_EQ(shown("A,B,C"), (Names{"A", "C"}));
    EXPECT_EQ(left, "A,C");
    EXPECT_EQ(loaded("B"), "");
    EXPECT_EQ(loaded("B,GONE,A,B,GONE"), "A");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionManager, EmptyPartsLeaveTheList) {
    for (const std::string sessions : {"A,,B", ",A,B", "A,B,", ",,A,,,B,,"}) {
        EXPECT_EQ(shown(sessions), (Names{"A", "B"})) << sessions;
        EXPECT_EQ(left, "A,B") << sessions;
    }
    EXPECT_EQ(loaded(","), "");
    EXPECT_EQ(loaded(",,,"), "");
}

TEST_P(SessionManager, BlanksBelongToTheNames) {
    EXPECT_EQ(loaded("A, B"), "A");
    EXPECT_EQ(loaded(" A,B "), "");
    EXPECT_EQ(loaded(" "), "");
    putSession(" B", {});
    EXPECT_EQ(shown("A, B,B"), (Names{"A", " B", "B"}));
    EXPECT_EQ(left, "A, B,B");
}

TEST_P(SessionManager, NamesAreShownAsGivenWhateverTheCaseOfTheFile) {
    putSession("mixed Case", {});
    EXPECT_EQ(shown("MIXED case,b,A"), (Names{"MIXED case", "b", "A"}));
    EXPECT_EQ(left, "MIXED case,b,A");
    EXPECT_EQ(pickFrom("b,A", ok), "b");
    EXPECT_EQ(shown("a,A"), (Names{"a", "A"})) << "two names of one file";
    EXPECT_EQ(left, "a,A");
}

TEST_P(SessionManager, CharactersBeyondAsciiAreNamesLikeOthers) {
    putSession("BÜRO 部品", {});
    EXPECT_EQ(shown("büro 部品,BÜRO 部品"), (Names{"büro 部品", "BÜRO 部品"}));
}

TEST_P(SessionManager, ANameLeadsToNoOtherFolder) {
    memory->makeFolder(deletedFolder);
    memory->save(ItemPath{deletedFolder, "OLD.vla"}, sessionText("A"));
    memory->save(ItemPath{"/store/", "X.vla"}, sessionText("A"));
    EXPECT_EQ(loaded("..\\X,../X,A,..\\PARTFORMAT\\CSV,deleted\\OLD,.\\B,/store/MORAM/B"), "A");
}

TEST_P(SessionManager, PatternsAndCataloguesAreNoSessions) {
    EXPECT_EQ(loaded("*,?,A*,MORAM,MORAM.vls,A.vla,B"), "B");
    memory->makeFolder(sessionFolder + "FOLDER.vla");
    EXPECT_EQ(loaded("FOLDER,B"), "B");
}

TEST_P(SessionManager, ANameGivenTwiceIsToldAndStaysInTheList) {
    for (int i = 0; i < 2; ++i) user().onBox();
    EXPECT_EQ(shown("A,B,A,GONE,A"), (Names{"A", "B"}));
    EXPECT_EQ(left, "A,B,A,A");
    ASSERT_EQ(user().boxes().size(), 2U);
    for (const SeenBox& box : user().boxes())
        expectFailure(box, failureText(kLoadTag, "The list has a row of the key \"A\" already."));
}

TEST_P(SessionManager, ANameWithACommaFallsApart) {
    putSession("X,Y", {});
    EXPECT_EQ(loaded("X,Y"), "");
    EXPECT_EQ(loaded("A,X,Y,B"), "A,B");
}

TEST_P(SessionManager, ASessionWithoutANameIsOneLikeOthers) {
    putSession("", {});
    EXPECT_EQ(shown("A,,B"), (Names{"A", "", "B"}));
    EXPECT_EQ(left, "A,,B");
    EXPECT_EQ(shown(",A"), (Names{"", "A"}));
    EXPECT_EQ(left, ",A") << "nothing was dropped, so the list stays letter by letter";
    EXPECT_EQ(loaded(",A,GONE"), "A") << "dropping a name loses an empty first part";
    EXPECT_EQ(loaded("A,,GONE"), "A,");
}

/// Far below what a cost that grows with the square of these lists would take.
constexpr std::chrono::seconds kSoon{60};

TEST_P(SessionManager, AMegabyteOfCommasIsAnEmptyList) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(shown(std::string(1'000'000, ',')), Names{});
    EXPECT_EQ(left, "");
    EXPECT_EQ(loaded(std::string(500'000, ',') + "B" + std::string(500'000, ',')), "B");
    EXPECT_LT(std::chrono::steady_clock::now() - start, kSoon);
}

TEST_P(SessionManager, AMegabyteOfNamesWithoutFilesIsAnEmptyList) {
    std::string sessions = "A";
    for (int i = 0; sessions.size() < 1'000'000; ++i) sessions += ",GONE " + std::to_string(i);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(shown(sessions + ",C"), (Names{"A", "C"}));
    EXPECT_EQ(left, "A,C");
    EXPECT_LT(std::chrono::steady_clock::now() - start, kSoon);
}

TEST_P(SessionManager, AOneMegabyteNameIsNoSession) {
    EXPECT_EQ(loaded(std::string(1'000'000, 'X') + ",A"), "A");
}

TEST_P(SessionManager, ThousandsOfSessionsKeepTheirOrder) {
    constexpr int count = 4000;
    Names expected;
    std::string sessions;
    std::string kept;
    for (int i = count; i > 0; --i) {
        const std::string session = "SESSION " + std::to_string(i);
        sessions += (sessions.empty() ? "" : ",") + session;
        if (i % 2 == 0) continue;
        memory->save(ItemPath::item(sessionFolder, session), "");
        expected.push_back(session);
        kept += (kept.empty() ? "" : ",") + session;
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(shown(sessions), expected);
    EXPECT_EQ(left, kept);
    EXPECT_LT(std::chrono::steady_clock::now() - start, kSoon);
}

// Failures on the way in.

TEST_P(SessionManager, ADialogThatCannotBeShownIsToldUnderOneTagByBothUses) {
    const auto view = std::make_shared<BrokenView>();
    view->failsToShow = "frmSessionManager";
    installView(view);
    EXPECT_EQ(component.showSessionManagerDlg("A,GONE"), "");
    EXPECT_EQ(component.showConfigurableSessionManagerDlg("A,GONE"), "A") << "it was loaded";
    ASSERT_EQ(view->boxes.size(), 2U);
    for (const MessageRequest& box : view->boxes)
        EXPECT_EQ(box.text, failureText("WYNConfig:showSessionManagerDlg", "no screen"));
}

TEST_P(SessionManager, AFailureAtLoadIsToldAndTheRestOfTheLoadRuns) {
    const auto view = std::make_shared<BrokenView>();
    view->failsToRaise = "frmSessionManager";
    installView(view);
    frmSessionManager form;
    form.init(false, "A,B");
    EXPECT_EQ(form.lstAvailableTESessions.count(), 2U);
    EXPECT_EQ(form.lstAvailableTESessions.selectedNumber(), 1U);
    EXPECT_EQ(form.btnOK.caption(), "{BUTTON_OK}");
    EXPECT_FALSE(form.btnAdd.visible());
    ASSERT_EQ(view->boxes.size(), 2U);
    for (const MessageRequest& box : view->boxes)
        EXPECT_EQ(box.text, failureText("frmSessionManager:Form_Load", "no window"));
}

TEST_P(SessionManager, AFolderThatCannotBeReadIsLookedUpNameByName) {
    disk.failOn(FaultyFileSystem::Operation::List);
    user().onBox();  // the failure box's own hidden form lists the sessions, too
    user().onBox();
    // A name of which nobody can tell stays in the list.
    EXPECT_EQ(shown("A,b,GONE"), (Names{"A", "b", "GONE"}));
    EXPECT_EQ(left, "A,b,GONE");
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "frmMORAMMaintenance:loadLstAvailableMORAMs"));
    EXPECT_TRUE(isFailureOf(user().boxes()[1].text, "frmSessionManager:loadLstConfiguredSessions"));
}

TEST_P(SessionManager, WithoutAStoreEveryNameIsDropped) {
    ConfigGlobalModule::g_SessionFolder = "/nowhere/MORAM\\";
    EXPECT_EQ(loaded("A,B"), "");
    EXPECT_TRUE(user().boxes().empty());
}

}  // namespace
}  // namespace wynconfig
