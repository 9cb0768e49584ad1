// The list of the maintenance dialog, the ways out of it, and its hidden instance behind the
// failure box.
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/session/frmMORAMMaintenance.h"
#include "services/global_error.h"
#include "support/caption_tables.h"
#include "support/desk.h"
#include "support/dialog_checks.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

class MaintenanceForm : public Desk {
  protected:
    static inline const std::string kList = "lstAvailableMORAMs2";

    Outcome show(const std::string& name, User::Script script) {
        user().onForm("frmMORAMMaintenance", std::move(script));
        frmMORAMMaintenance form;
        form.init(name);
        form.Show();
        form.Unload();
        return {form.Result(), form.SessionName()};
    }
    /// The text of the row that is selected at load; empty for none.
    std::string selectedAtLoad(const std::string& name) {
        frmMORAMMaintenance form;
        form.init(name);
        const ListRow* row = form.lstAvailableMORAMs2.selectedItem();
        return row ? row->text : "";
    }
    std::size_t timesAsked(const std::string& key) const {
        return static_cast<std::size_t>(std::count(texts->asked.begin(), texts->asked.end(), key));
    }
};
ON_EVERY_VIEW(MaintenanceForm);

TEST_P(MaintenanceForm, ListsTheSessionsOfTheFolderInItsOrder) {
    for (const char* name : {"beta", "Alpha", "C D", "部品"}) putSession(name, {});
    memory->makeFolder(sessionFolder + "deleted");
    memory->save(ItemPath{sessionFolder + "deleted\\", "GONE.vla"}, sessionText("beta"));
    memory->save(ItemPath{sessionFolder, "note.txt"}, "");
    for (const bool inMemory : {false, true}) {
        g_DatasetMode = inMemory;
        show("", [](User& u) {
            const Sight list = u.see(kList);
            EXPECT_EQ(list.rows,
                      (std::vector<SeenRow>{
                          {"Alpha", "Alpha"}, {"beta", "beta"}, {"C D", "C D"}, {"部品", "部品"}}));
            EXPECT_EQ(list.selected, 1U);
            EXPECT_TRUE(list.visible);
            EXPECT_EQ(list.background, Background::Window);
            EXPECT_EQ(u.formTitle(), "{MORAM_MAINT_TITLE}");
            u.click("btnCancel");
        });
    }
}

TEST_P(MaintenanceForm, TheColumnKeepsTheLabelsDesignText) {
    putSession("A", {});
    frmMORAMMaintenance form;
    EXPECT_EQ(form.lblSelectSession.caption(), "{MORAM_MAINT_LBL_SELECTSESSION}");
    const auto& columns = form.lstAvailableMORAMs2.columns();
    ASSERT_EQ(columns.size(), 1U);
    EXPECT_EQ(columns[0].key, "NAME");
    EXPECT_EQ(columns[0].text, "Select a session");
    EXPECT_EQ(columns[0].width, 3200);
    EXPECT_EQ(columns[0].tag, "Stores the name of the item");
    ASSERT_NE(form.font(), nullptr);
    EXPECT_EQ(form.lstAvailableMORAMs2.row(1).font, form.font());
}

TEST_P(MaintenanceForm, SelectsTheNamedRowOrElseTheFirst) {
    for (const char* name : {"A", "B", "C"}) putSession(name, {});
    EXPECT_EQ(selectedAtLoad("B"), "B");
    EXPECT_EQ(selectedAtLoad("C"), "C");
    EXPECT_EQ(selectedAtLoad(""), "A");
    EXPECT_EQ(selectedAtLoad("b"), "A");
    EXPECT_EQ(selectedAtLoad("GONE"), "A");
}

TEST_P(MaintenanceForm, OkGivesTheSelectedName) {
    for (const char* name : {"A", "B", "C"}) putSession(name, {});
    const auto ok = [](User& u) { u.click("btnOK"); };
    EXPECT_EQ(show("B", ok), (Outcome{0, "B"}));
    EXPECT_EQ(show("GONE", ok), (Outcome{0, "A"}));
    EXPECT_EQ(show("B",
                   [](User& u) {
                       u.pick(kList, "C");
                       u.pressEnter();
                   }),
              (Outcome{0, "C"}));
}

TEST_P(MaintenanceForm, AnEmptyFolderGivesAnEmptyListAndNoName) {
    EXPECT_EQ(show("B",
                   [](User& u) {
                       EXPECT_TRUE(u.see(kList).rows.empty());
                       EXPECT_EQ(u.see(kList).selected, 0U);
                       EXPECT_TRUE(u.see(kList).visible);
                       u.click("btnOK");
                   }),
              (Outcome{1, ""}));
}

TEST_P(MaintenanceForm, CancelAndEscapeGiveNoName) {
    putSession("A", {});
    EXPECT_EQ(show("A", [](User& u) { u.click("btnCancel"); }), (Outcome{1, ""}));
    EXPECT_EQ(show("A", [](User& u) { u.pressEscape(); }), (Outcome{1, ""}));
}

TEST_P(MaintenanceForm, ClosingByTheFrameKeepsTheNameAsGiven) {
    putSession("A", {});
    putSession("B", {});
    EXPECT_EQ(show("A",
                   [](User& u) {
                       u.pick(kList, "B");
                       u.closeByFrame();
                   }),
              (Outcome{1, "A"}));
    EXPECT_EQ(show("gone", [](User& u) { u.closeByFrame(); }), (Outcome{1, "gone"}));
}

TEST_P(MaintenanceForm, LoadsWhenItIsShownAndNotBefore) {
    user().onForm("frmMORAMMaintenance", [](User& u) { u.click("btnCancel"); });
    frmMORAMMaintenance form;
    form.init("A");
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.SessionName(), "A");
    EXPECT_TRUE(texts->asked.empty());
    form.Show();
    form.Unload();
    EXPECT_EQ(form.Result(), 1);
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.UniCaption1.bound());
    EXPECT_EQ(timesAsked("MORAM_MAINT_LBL_SELECTSESSION"), 1U);
}

TEST_P(MaintenanceForm, CaptionsComeByKeyOrAllByDefault) {
    expectTexts<frmMORAMMaintenance>(*texts, kMaintenanceTexts);
}

TEST_P(MaintenanceForm, TheFormsOwnCaptionFollowsTheCaptionBar) {
    frmMORAMMaintenance form;
    form.Hide();
    EXPECT_TRUE(form.UniCaption1.bound());
    EXPECT_EQ(form.caption(), "{MORAM_MAINT_TITLE}");
    texts->missing = {"BUTTON_CANCEL"};
    form.SetTextStrings();
    EXPECT_EQ(form.caption(), "Session Maintenance");
    texts->missing.clear();
    texts->texts["MORAM_MAINT_TITLE"] = "";
    form.SetTextStrings();
    EXPECT_EQ(form.caption(), "");
}

TEST_P(MaintenanceForm, SharesTheFontAndDoesWithoutIt) {
    frmMORAMMaintenance form;
    form.Hide();
    expectFontEverywhere(form, texts->font);
    form.Unload();
    texts->fontFailing = true;
    putSession("A", {});
    form.Hide();
    EXPECT_EQ(form.font(), nullptr);
    EXPECT_EQ(form.lstAvailableMORAMs2.row(1).font, nullptr);
    EXPECT_EQ(form.btnOK.caption(), "{BUTTON_OK}");
}

TEST_P(MaintenanceForm, AFolderThatCantBeReadIsToldAndShowsNoSession) {
    putSession("A", {});
    disk.failOn(FaultyFileSystem::Operation::List);
    user().onBox();  // of the failure box's own hidden form, which is one of these
    user().onBox();
    EXPECT_EQ(show("A", [](User& u) { u.click("btnOK"); }), (Outcome{1, ""}));
    ASSERT_EQ(user().boxes().size(), 2U);
    for (const SeenBox& box : user().boxes()) {
        EXPECT_TRUE(isFailureOf(box.text, "frmMORAMMaintenance:loadLstAvailableMORAMs"));
        EXPECT_NE(box.text.find("The folder /store/MORAM can't be read: "), std::string::npos);
    }
}

TEST_P(MaintenanceForm, OpensInEnglishWithoutAResourceManager) {
    component.InitResourceManager(nullptr);
    putSession("A", {});
    EXPECT_EQ(show("",
                   [](User& u) {
                       EXPECT_EQ(u.formTitle(), "Session Maintenance");
                       EXPECT_EQ(u.see("btnEdit").caption, "Edit");
                       u.click("btnOK");
                   }),
              (Outcome{0, "A"}));
    EXPECT_TRUE(user().boxes().empty());
}

/// A view that can't raise windows, and that notes who owns its boxes.
class NoRaising : public ScriptedView {
  public:
    void raise(Form&, bool) override { throw std::runtime_error("no window"); }
    int showMessage(const MessageRequest& box) override {
        owners.push_back(box.owner);
        return ScriptedView::showMessage(box);
    }
    std::vector<const Form*> owners;
};

TEST_P(MaintenanceForm, AFailureAtLoadIsToldAndTheRestOfTheLoadRuns) {
    putSession("A", {});
    putSession("B", {});
    const auto view = std::make_shared<NoRaising>();
    installView(view);
    // The box's own hidden form fails in the same two places when the first box loads it.
    for (int i = 0; i < 4; ++i) view->user().onBox();
    view->user().onForm("frmMORAMMaintenance", [](User& u) {
        EXPECT_EQ(u.see(kList).rowTexts(), (std::vector<std::string>{"A", "B"}));
        EXPECT_EQ(u.see(kList).selected, 2U);
        EXPECT_EQ(u.formTitle(), "{MORAM_MAINT_TITLE}");
        u.click("btnOK");
    });
    frmMORAMMaintenance form;
    form.init("B");
    form.Show();
    EXPECT_EQ(form.Result(), 0);
    EXPECT_EQ(form.SessionName(), "B");
    ASSERT_EQ(view->user().boxes().size(), 4U);
    for (const SeenBox& box : view->user().boxes())
        expectFailure(box, failureText("frmMORAMMaintenance:Form_Load", "no window"));
    view->user().finish();
}

TEST_P(MaintenanceForm, AFailureInTheHiddenLoadDoesNotComeBackOnItself) {
    const auto view = std::make_shared<NoRaising>();
    installView(view);
    for (int i = 0; i < 3; ++i) view->user().onBox();
    GlobalError("VLWYNConfig", "Some:place", 1, "the cause");
    std::vector<std::string> told;
    for (const SeenBox& box : view->user().boxes()) told.push_back(box.text);
    const std::string atLoad = failureText("frmMORAMMaintenance:Form_Load", "no window");
    EXPECT_EQ(told,
              (std::vector<std::string>{atLoad, atLoad, failureText("Some:place", "the cause")}));
    EXPECT_TRUE(view->user().forms().empty());
    ASSERT_EQ(view->owners.size(), 3U);
    EXPECT_EQ(view->owners[0]->name(), "frmMORAMMaintenance");
    EXPECT_EQ(view->owners[1], view->owners[0]);
    EXPECT_EQ(view->owners[2], view->owners[0]);
    view->user().finish();
}

TEST_P(MaintenanceForm, TheFirstFailureBoxLoadsAHiddenInstanceForGood) {
    putSession("A", {});
    for (int i = 0; i < 2; ++i) user().onBox();
    GlobalError("VLWYNConfig", "Some:place", 7, "the cause");
    EXPECT_EQ(timesAsked("MORAM_MAINT_LBL_SELECTSESSION"), 1U);
    GlobalError("WYNConfig", "Other:place", 999999, "another");
    EXPECT_EQ(timesAsked("MORAM_MAINT_LBL_SELECTSESSION"), 1U);
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0],
                  "{GLOBAL_MOD_ERROR}: the cause\r\n\r\n{GLOBAL_MOD_TEXT} VLWYNConfig\r\n"
                  "{GLOBAL_MOD_PROCEDURE} Some:place\r\n\r\n{GLOBAL_MOD_MSG}");
    expectFailure(user().boxes()[1],
                  "{GLOBAL_MOD_ERROR}: another\r\n\r\n{GLOBAL_MOD_TEXT} WYNConfig\r\n"
                  "{GLOBAL_MOD_PROCEDURE} Other:place\r\n\r\n{GLOBAL_MOD_MSG}");
    EXPECT_TRUE(user().forms().empty());
}

TEST_P(MaintenanceForm, TheHiddenInstanceIsNotTheOneThatIsShown) {
    putSession("A", {});
    user().onBox();
    GlobalError("VLWYNConfig", "Some:place", 1, "the cause");
    putSession("B", {});
    EXPECT_EQ(show("",
                   [](User& u) {
                       EXPECT_EQ(u.see(kList).rowTexts(), (std::vector<std::string>{"A", "B"}));
                       u.pick(kList, "B");
                       u.click("btnOK");
                   }),
              (Outcome{0, "B"}));
    user().onBox();
    GlobalError("VLWYNConfig", "Some:place", 1, "the cause");
    EXPECT_EQ(timesAsked("MORAM_MAINT_LBL_SELECTSESSION"), 2U) << "once hidden, once shown";
}

TEST_P(MaintenanceForm, WithoutAResourceManagerTheFailureBoxIsEmpty) {
    component.InitResourceManager(nullptr);
    user().onBox();
    GlobalError("VLWYNConfig", "Some:place", 1, "the cause");
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, "");
    EXPECT_EQ(user().boxes()[0].title, "");
    EXPECT_EQ(user().boxes()[0].okCaption, "");
    EXPECT_EQ(user().boxes()[0].style, 4112);
}

TEST_P(MaintenanceForm, EachMissingTextOfTheFailureBoxCostsItsOwnStatement) {
    for (const char* key : {"GLOBAL_MOD_ERROR", "GLOBAL_MOD_TEXT", "GLOBAL_MOD_PROCEDURE",
                            "GLOBAL_MOD_MSG", "GLOBAL_MOD_UNEXPECTED", "BUTTON_OK"}) {
        texts->missing = {key};
        user().onBox();
        GlobalError("VLWYNConfig", "Some:place", 1, "the cause");
        const SeenBox& box = user().boxes().back();
        const std::string missing = key;
        const bool ofMessage =
            missing.starts_with("GLOBAL_MOD_") && missing != "GLOBAL_MOD_UNEXPECTED";
        EXPECT_EQ(box.text, ofMessage ? "" : failureText("Some:place", "the cause")) << key;
        EXPECT_EQ(box.title, missing == "GLOBAL_MOD_UNEXPECTED" ? "" : "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.okCaption, missing == "BUTTON_OK" ? "" : "{BUTTON_OK}");
    }
    EXPECT_EQ(user().boxes().size(), 6U);
}

/// A view that can show no box.
class NoBoxes : public ScriptedView {
  public:
    int showMessage(const MessageRequest&) override {
        ++tried;
        throw std::runtime_error("no box");
    }
    int tried = 0;
};

TEST_P(MaintenanceForm, ABoxThatCantBeShownIsPassedOver) {
    const auto view = std::make_shared<NoBoxes>();
    installView(view);
    EXPECT_NO_THROW(GlobalError("VLWYNConfig", "Some:place", 1, "the cause"));
    EXPECT_EQ(view->tried, 1);
    view->user().finish();
}

}  // namespace
}  // namespace wynconfig
