// The host's way to a session in file mode: opening one and adding one.
#include <algorithm>

#include "support/failing_views.h"
#include "support/session_dialog_desk.h"

namespace wynconfig {
namespace {

class EntryPoints : public FullSessionDesk {
  protected:
    /// Announces an add dialog in which the person makes a session on the base of "DESK".
    void announceAdding(const std::string& typedName) {
        user().onForm("frmAddMORAMConfig", [typedName](User& u) {
            u.type("txtName", typedName);
            u.choose("cboConfigs", "DESK");
            u.click("btnOK");
        });
    }
    static void cancel(User& u) { u.click("btnCancel"); }

    std::string name;
};
ON_EVERY_VIEW(EntryPoints);

TEST_P(EntryPoints, AnOpenedNameIsUpperCasedAndWrittenBackAsTheDialogSays) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        u.click("btnCancel");
    });
    name = "dEsk";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "DESK");
}

TEST_P(EntryPoints, OpeningGivesZeroAndTheNameAfterOk) {
    announceConfiguring([](User& u) { u.click("btnOK"); });
    name = "desk";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "DESK");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(EntryPoints, OpeningGivesTheNewNameAfterARename) {
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "bench");
        u.click("btnOK");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "BENCH");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"BENCH.vla"}));
}

TEST_P(EntryPoints, CancellingAnOpenedSessionDeletesNothing) {
    const std::string before = sessionText("DESK");
    announceConfiguring(cancel);
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(sessionText("DESK"), before);
}

TEST_P(EntryPoints, CancelAfterApplyGivesZero) {
    announceConfiguring([](User& u) {
        u.click("btnApply");
        u.click("btnCancel");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
}

TEST_P(EntryPoints, TheFrameGivesOneEvenAfterApply) {
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "bench");
        u.click("btnApply");
        u.closeByFrame();
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "BENCH");
    EXPECT_TRUE(sessionExists("BENCH"));
}

TEST_P(EntryPoints, TheFrameGivesOneWithoutAnything) {
    announceConfiguring([](User& u) { u.closeByFrame(); });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "DESK");
}

TEST_P(EntryPoints, OpeningAMissingSessionShowsAnEmptyDialog) {
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        u.click("btnCancel");
    });
    name = "gone";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "GONE");
}

TEST_P(EntryPoints, NoStateCarriesOverToTheNextCall) {
    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "left over");
        u.changeTab("SSTab2", 1);
        u.click("btnApply");
        u.changeTab("SSTab2", 0);
        u.type("txtProgramPath", "left over too");
        u.click("btnCancel");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("SSTab2").selected, 1U);
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
}

TEST_P(EntryPoints, ReadingTheAnswerDoesNotLoadAClosedDialogAgain) {
    announceConfiguring(cancel);
    name = "DESK";
    component.showMORAMConfigDlg(name);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_CONFIG_TITLE"), 1);

    announceAdding("NEW");
    announceConfiguring([](User& u) { u.click("btnOK"); });
    texts->asked.clear();
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "ADD_MORAM_CONFIG_TITLE"), 1);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_CONFIG_TITLE"), 1);
}

TEST_P(EntryPoints, ADialogThatWasNeverShownIsNotLoadedForItsUnload) {
    user().onForm("frmAddMORAMConfig", cancel);
    component.showAddMORAMConfigDlg(name);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "ADD_MORAM_CONFIG_TITLE"), 1);
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_CONFIG_TITLE"), 0);
}

TEST_P(EntryPoints, OpeningKeepsTheInMemoryModeAndAddingEndsIt) {
    ConfigGlobalModule::g_DatasetMode = true;
    const std::string before = sessionText("DESK");
    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnOK");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(sessionText("DESK"), before);
    EXPECT_TRUE(ConfigGlobalModule::g_DatasetMode);

    user().onForm("frmAddMORAMConfig", cancel);
    component.showAddMORAMConfigDlg(name);
    EXPECT_FALSE(ConfigGlobalModule::g_DatasetMode);

    announceConfiguring([](User& u) {
        u.type("txtCommandLineArgs", "/changed");
        u.click("btnOK");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(sessionRows("DESK")["CommandLineArgs"], "/changed");
}

TEST_P(EntryPoints, AnEntryPointMayRunWithinAnother) {
    announceAdding("NEW");
    announceConfiguring([this](User& u) {
        announceConfiguring([](User& inner) {
            EXPECT_EQ(inner.see("txtDisplayName").text, "NEW");
            inner.click("btnOK");
        });
        WYNConfig another;
        std::string added;
        EXPECT_EQ(another.showAddMORAMConfigDlg(added), 0);
        EXPECT_EQ(added, "NEW");
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        u.click("btnCancel");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "DESK");
    EXPECT_TRUE(sessionExists("NEW"));
}

TEST_P(EntryPoints, OpensInEnglishWithoutAResourceManager) {
    component.InitResourceManager(nullptr);
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.formTitle(), "WYN 3rd Party Application Configuration");
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        u.click("btnCancel");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_TRUE(user().boxes().empty());
}

// Adding.

TEST_P(EntryPoints, AProposedNameIsUpperCased) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtName").text, "MY BENCH");
        u.click("btnCancel");
    });
    name = "my bench";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
}

TEST_P(EntryPoints, CancellingTheAddDialogGivesNoNameAndOpensNothing) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "NEW");
        u.click("btnCancel");
    });
    name = "proposed";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (std::vector<std::string>{"frmAddMORAMConfig"}));
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"DESK.vla"}));
}

TEST_P(EntryPoints, ConfirmingBothDialogsGivesZeroAndTheName) {
    announceAdding("new");
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "NEW");
        u.click("btnOK");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "NEW");
    EXPECT_TRUE(sessionExists("NEW"));
}

TEST_P(EntryPoints, CancellingTheNewSessionTakesItsFileBack) {
    announceAdding("NEW");
    announceConfiguring([this](User& u) {
        EXPECT_TRUE(sessionExists("NEW"));
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"DESK.vla"}));
    EXPECT_FALSE(memory->folderExists("/store/MORAM/deleted"));
}

TEST_P(EntryPoints, ClosingTheNewSessionByItsFrameTakesItsFileBackEvenAfterApply) {
    announceAdding("NEW");
    announceConfiguring([](User& u) {
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_FALSE(sessionExists("NEW"));
}

TEST_P(EntryPoints, ApplyThenCancelKeepsTheNewSession) {
    announceAdding("NEW");
    announceConfiguring([](User& u) {
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "NEW");
    EXPECT_TRUE(sessionExists("NEW"));
}

TEST_P(EntryPoints, ANewSessionMayEndOnAnotherName) {
    announceAdding("NEW");
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "newer");
        u.click("btnOK");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "NEWER");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"DESK.vla", "NEWER.vla"}));
}

TEST_P(EntryPoints, ANewSessionRenamedByARefusedApplyStaysUnderItsSecondName) {
    announceAdding("NEW");
    user().onBox();
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "newer");
        u.type("txtProgramPath", "/no/such.exe");
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"DESK.vla", "NEWER.vla"}));
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(EntryPoints, ANewSessionAppliedUnderAnotherNameAndClosedByTheFrameStays) {
    announceAdding("NEW");
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "newer");
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"DESK.vla", "NEWER.vla"}));
}

TEST_P(EntryPoints, ClosingTheAddDialogByItsFrameGoesOnWithTheName) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "new");
        u.closeByFrame();
    });
    announceConfiguring([this](User& u) {
        EXPECT_FALSE(sessionExists("NEW"));
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (std::vector<std::string>{"frmAddMORAMConfig", "frmMORAMConfig"}));
}

TEST_P(EntryPoints, ClosingTheAddDialogByItsFrameWithBlanksOnlyIsACancel) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "   ");
        u.closeByFrame();
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (std::vector<std::string>{"frmAddMORAMConfig"}));
}

TEST_P(EntryPoints, TheFrameOnAnExistingNameThenCancelDeletesThatSession) {
    user().onForm("frmAddMORAMConfig", [](User& u) { u.closeByFrame(); });
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        u.click("btnCancel");
    });
    name = "desk";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_FALSE(sessionExists("DESK"));
}

TEST_P(EntryPoints, AFailedTakingBackIsToldAndChangesNoAnswer) {
    announceAdding("NEW");
    announceConfiguring(cancel);
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "WYNConfig:showAddMORAMConfigDlg")) << box.text;
        EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.style, 4112);
        EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
        return answer::Ok;
    });
    disk.failOn(FaultyFileSystem::Operation::Remove);
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_TRUE(sessionExists("NEW"));
}

// Failures of the steps themselves.

TEST_P(EntryPoints, OpeningTellsADialogThatCannotBeShown) {
    auto view = std::make_shared<BrokenView>();
    view->failsToShow = "*";
    installView(view);
    name = "desk";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "DESK");
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText("WYNConfig:showMORAMConfigDlg", "no screen"));
    EXPECT_EQ(view->boxes[0].style, 4112);
}

TEST_P(EntryPoints, AddingGoesOnBehindADialogThatCannotBeShown) {
    auto view = std::make_shared<BrokenView>();
    view->failsToShow = "frmAddMORAMConfig";
    installView(view);
    name = "new";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(view->shown, (std::vector<std::string>{"frmMORAMConfig"}));
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText("WYNConfig:showAddMORAMConfigDlg", "no screen"));
}

TEST_P(EntryPoints, ADialogWhoseOpeningFailedIsShownAllTheSame) {
    auto view = std::make_shared<BrokenView>();
    view->failsToRaise = "frmMORAMConfig";
    installView(view);
    name = "desk";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "DESK");
    EXPECT_EQ(view->shown, (std::vector<std::string>{"frmMORAMConfig"}));
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text, failureText("UnifrmMORAMConfig:init", "no window"));
}

}  // namespace
}  // namespace wynconfig
