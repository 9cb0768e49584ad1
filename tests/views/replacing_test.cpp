// A host that replaces its view or its resource manager while a dialog is up or a text is asked
// for: the one that is at work stays until it is done.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/session/frmAddMORAMConfig.h"
#include "services/list_and_name_helpers.h"
#include "services/texts.h"
#include "support/desk.h"
#include "wynconfig/form.h"

namespace wynconfig {
namespace {

/// A dialog with all that asks something of a view.
class Asking : public Form {
  public:
    Asking() : Form("frmAsking") {
        btnAsk.Click = [this] { asked(); };
        btnClose.Click = [this] { Unload(); };
    }
    std::function<void()> asked = [] {};
    MsgBox box{*this, "box"};
    BrowseFolder folder{*this, "folder"};
    Button btnAsk{*this, "btnAsk", "Ask"};
    Button btnClose{*this, "btnClose", "Close"};

  protected:
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({single(btnAsk), single(btnClose)}), &btnAsk, &btnClose};
    }
};

class Replacing : public Desk {
  protected:
    /// Installs a view of the kind under test that tells when it goes.
    User& installTold(bool& gone) {
        User* person = nullptr;
        const std::shared_ptr<View> view = makeView(GetParam(), person);
        installView(std::shared_ptr<View>(view.get(), [view, &gone](View*) { gone = true; }));
        return *person;
    }
};
ON_EVERY_VIEW(Replacing);

TEST_P(Replacing, AViewStaysUntilItsDialogHasClosed) {
    bool gone = false;
    User& person = installTold(gone);
    Asking form;
    form.asked = [] { installView(nullptr); };
    person.onForm("frmAsking", [&](User& u) {
        u.click("btnAsk");
        EXPECT_FALSE(gone);
        EXPECT_EQ(u.see("btnAsk").caption, "Ask");
        u.click("btnClose");
        EXPECT_FALSE(gone);
        u.finish();
    });
    form.Show();
    EXPECT_TRUE(gone);
}

TEST_P(Replacing, ANewViewShowsWhatComesUpFromThenOn) {
    bool gone = false;
    bool newGone = false;
    User& person = installTold(gone);
    User* newcomer = nullptr;
    Asking form;
    Asking above;
    form.asked = [&] {
        newcomer = &installTold(newGone);
        newcomer->onBox(answer::Yes);
        newcomer->onForm("frmAsking", [&](User& u) {
            EXPECT_FALSE(gone);
            u.click("btnClose");
        });
        EXPECT_EQ(form.box.ShowMsg("Sure?", boxstyle::YesNo, "", ""), answer::Yes);
        above.Show();
    };
    person.onForm("frmAsking", [&](User& u) {
        u.click("btnAsk");
        EXPECT_FALSE(gone);
        u.click("btnClose");
        u.finish();
    });
    form.Show();
    EXPECT_TRUE(gone);
    EXPECT_FALSE(newGone);
    newcomer->finish();
    installView(nullptr);
    EXPECT_TRUE(newGone);
}

TEST_P(Replacing, AViewStaysUntilItsBoxIsAnswered) {
    bool gone = false;
    User& person = installTold(gone);
    Asking form;
    person.onBox([&](const SeenBox&) {
        installView(nullptr);
        EXPECT_FALSE(gone);
        return answer::Yes;
    });
    EXPECT_EQ(form.box.ShowMsg("Sure?", boxstyle::YesNo, "", ""), answer::Yes);
    EXPECT_TRUE(gone);
}

TEST_P(Replacing, AnOperationOutlivesItsView) {
    bool gone = false;
    User& person = installTold(gone);
    putSession("BASE", {{"ProgramPath", "base.exe"}});
    person.onForm("frmAddMORAMConfig", [&](User& u) {
        installView(nullptr);
        u.type("txtName", "NEW");
        u.click("btnCancel");
        EXPECT_FALSE(gone);
        u.finish();
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_TRUE(gone);
}

/// A view that is taken away in each of its calls, and goes on to work with what it has.
class LeavingView : public View {
  public:
    LeavingView(std::vector<std::string>& done, bool& gone) : m_done(done), m_gone(gone) {}
    ~LeavingView() override { m_gone = true; }

    void showModal(Form& form) override {
        leave("show");
        userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest&) override {
        leave("box");
        return m_answer;
    }
    std::string browse(const BrowseRequest&) override {
        leave("browse");
        return m_path;
    }
    void raise(Form&, bool) override { leave("raise"); }
    long deviceContext(Form&) override {
        leave("device");
        return m_answer;
    }

  private:
    void leave(const char* call) {
        installView(nullptr);
        EXPECT_FALSE(m_gone) << call;
        m_done.emplace_back(call);
    }

    std::vector<std::string>& m_done;
    bool& m_gone;
    int m_answer = answer::Yes;
    std::string m_path = "/a/path/that/is/too/long/to/lie/within/the/view";
};

TEST(ReplacingAView, InAnyOfItsCallsLeavesItToTheEndOfTheCall) {
    std::vector<std::string> done;
    Asking form;
    const std::vector<std::function<void()>> calls{
        [&] { form.Show(); },
        [&] { EXPECT_EQ(form.box.ShowMsg("Sure?", 4, "", ""), answer::Yes); },
        [&] { EXPECT_EQ(form.folder.browse(false, "", "", "", {}).substr(0, 3), "/a/"); },
        [&] { SetTopMost(form, true); },
        [&] { EXPECT_EQ(form.hDC(), answer::Yes); },
    };
    for (const auto& call : calls) {
        bool gone = false;
        installView(std::make_shared<LeavingView>(done, gone));
        call();
        EXPECT_TRUE(gone);
    }
    EXPECT_EQ(done, (std::vector<std::string>{"show", "box", "browse", "raise", "device"}));
}

TEST(ReplacingAView, MayInstallAnotherAsItGoes) {
    struct Successor : ScriptedView {
        std::shared_ptr<View> next;
        ~Successor() override { installView(std::move(next)); }
    };
    auto first = std::make_shared<Successor>();
    const auto last = std::make_shared<ScriptedView>();
    first->next = last;
    installView(std::move(first));
    installView(nullptr);
    EXPECT_EQ(installedView(), last);
    installView(nullptr);
}

/// A resource manager that is replaced while it answers, and then goes on to work with what it has.
class LeavingTexts : public ResourceManager {
  public:
    LeavingTexts(WYNConfig& component, bool& gone) : m_component(component), m_gone(gone) {}
    ~LeavingTexts() override { m_gone = true; }

    std::string GetString(const std::string& key) override {
        leave();
        return m_text + key;
    }
    Font GetFont(long) override {
        leave();
        return m_font;
    }

  private:
    void leave() {
        m_component.InitResourceManager(std::make_shared<TestTexts>());
        EXPECT_FALSE(m_gone);
    }

    WYNConfig& m_component;
    bool& m_gone;
    std::string m_text = "a text that is too long to lie within the manager: ";
    Font m_font{"A family of a long name, too", 11.0, true, false};
};

TEST_P(Replacing, AResourceManagerStaysUntilItHasAnswered) {
    bool gone = false;
    component.InitResourceManager(std::make_shared<LeavingTexts>(component, gone));
    EXPECT_EQ(GetString("KEY"), "a text that is too long to lie within the manager: KEY");
    EXPECT_TRUE(gone);
    EXPECT_EQ(GetString("KEY"), "{KEY}");
}

TEST_P(Replacing, AResourceManagerStaysUntilItHasGivenItsFont) {
    bool gone = false;
    component.InitResourceManager(std::make_shared<LeavingTexts>(component, gone));
    Asking form;
    SetFormFont(form);
    EXPECT_TRUE(gone);
    EXPECT_EQ(form.font()->family, "A family of a long name, too");
    EXPECT_EQ(form.btnAsk.font(), form.font());
}

TEST_P(Replacing, ADialogTakesItsTextsOverTheChangeOfItsManager) {
    bool gone = false;
    component.InitResourceManager(std::make_shared<LeavingTexts>(component, gone));
    frmAddMORAMConfig form;
    form.Hide();
    EXPECT_TRUE(gone);
    EXPECT_EQ(form.btnCancel.caption(), "{BUTTON_CANCEL}");
}

}  // namespace
}  // namespace wynconfig
