// The one way of telling an unexpected failure: the box, the hidden form behind it, and what
// happens after a failure.
#include <algorithm>
#include <functional>
#include <new>
#include <stdexcept>

#include "dialogs/session/frmMORAMConfig.h"
#include "dialogs/session/frmMORAMMaintenance.h"
#include "platform/text/text.h"
#include "services/global_error.h"
#include "services/list_and_name_helpers.h"
#include "services/on_error.h"
#include "services/texts.h"
#include "support/desk.h"
#include "wynconfig/form.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

class FailureBox : public Desk {
  protected:
    /// The box that comes up while a failure is told.
    SeenBox boxOf(const std::function<void()>& failing) {
        user().onBox(answer::Ok);
        failing();
        EXPECT_EQ(user().boxes().size(), 1U);
        SeenBox box = user().boxes().empty() ? SeenBox{} : user().boxes().back();
        EXPECT_NO_THROW(user().finish());
        return box;
    }
    SeenBox tell(const std::string& description = "gone", long number = 5) {
        return boxOf([&] { GlobalError("VLWYNConfig", "form:doing", number, description); });
    }
};
ON_EVERY_VIEW(FailureBox);

TEST_P(FailureBox, ShowsTheTextsWithTheirExactSeparators) {
    texts->texts = {{"GLOBAL_MOD_ERROR", "Error"},           {"GLOBAL_MOD_TEXT", "in"},
                    {"GLOBAL_MOD_PROCEDURE", "at"},          {"GLOBAL_MOD_MSG", "Call us."},
                    {"GLOBAL_MOD_UNEXPECTED", "Unexpected"}, {"BUTTON_OK", "Fine"}};
    const SeenBox box = tell("The file is gone.");
    EXPECT_EQ(box.text,
              "Error: The file is gone.\r\n\r\nin VLWYNConfig\r\nat form:doing\r\n\r\nCall us.");
    EXPECT_EQ(box.title, "Unexpected");
    EXPECT_EQ(box.style, 4112);
    EXPECT_EQ(box.okCaption, "Fine");
}

TEST_P(FailureBox, ShowsTheProjectThatItIsGiven) {
    const SeenBox box = boxOf([] { GlobalError("WYNConfig", "a:b", 0, "c"); });
    EXPECT_EQ(box.text,
              "{GLOBAL_MOD_ERROR}: c\r\n\r\n{GLOBAL_MOD_TEXT} WYNConfig\r\n"
              "{GLOBAL_MOD_PROCEDURE} a:b\r\n\r\n{GLOBAL_MOD_MSG}");
}

TEST_P(FailureBox, NeverShowsTheNumber) {
    const SeenBox box = tell("gone", 0);
    EXPECT_EQ(box.text, failureText("form:doing", "gone"));
    EXPECT_EQ(tell("gone", 2147483647).text, box.text);
    EXPECT_EQ(tell("gone", -1).text, box.text);
}

TEST_P(FailureBox, ShowsAnyDescription) {
    for (const std::string description : {"", "部品\r\n\"x\" & <y>", "{0} %s"})
        EXPECT_EQ(tell(description).text, failureText("form:doing", description));
}

TEST_P(FailureBox, WithoutAManagerComesUpEmpty) {
    component.InitResourceManager(nullptr);
    const SeenBox box = tell();
    EXPECT_EQ(box.text, "");
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(box.okCaption, "");
    EXPECT_EQ(box.style, 4112);
}

TEST_P(FailureBox, LosesItsWholeTextByOneFailingKeyOfIt) {
    for (const std::string key :
         {"GLOBAL_MOD_ERROR", "GLOBAL_MOD_TEXT", "GLOBAL_MOD_PROCEDURE", "GLOBAL_MOD_MSG"}) {
        texts->missing = {key};
        const SeenBox box = tell();
        EXPECT_EQ(box.text, "") << key;
        EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
    }
}

TEST_P(FailureBox, LosesItsTitleAloneByTheTitlesKey) {
    texts->missing = {"GLOBAL_MOD_UNEXPECTED"};
    const SeenBox box = tell();
    EXPECT_EQ(box.text, failureText("form:doing", "gone"));
    EXPECT_EQ(box.title, "");
    EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
}

TEST_P(FailureBox, LosesItsCaptionAloneByTheCaptionsKey) {
    texts->missing = {"BUTTON_OK"};
    const SeenBox box = tell();
    EXPECT_EQ(box.text, failureText("form:doing", "gone"));
    EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
    EXPECT_EQ(box.okCaption, "");
}

TEST_P(FailureBox, FetchesItsTextsEachTimeInTheirOrder) {
    tell();
    texts->asked.clear();
    tell();
    EXPECT_EQ(texts->asked, (std::vector<std::string>{"BUTTON_OK", "GLOBAL_MOD_ERROR",
                                                      "GLOBAL_MOD_TEXT", "GLOBAL_MOD_PROCEDURE",
                                                      "GLOBAL_MOD_MSG", "GLOBAL_MOD_UNEXPECTED"}));
}

TEST_P(FailureBox, LoadsItsHiddenFormAtTheFirstFailureAlone) {
    putSession("MINE", {});
    disk.resetCounts();
    user().onBox([this](const SeenBox&) {
        EXPECT_TRUE(user().forms().empty());
        return answer::Ok;
    });
    GlobalError("VLWYNConfig", "a:b", 0, "c");
    EXPECT_TRUE(user().forms().empty());
    const auto& asked = texts->asked;
    const auto title = std::find(asked.begin(), asked.end(), "MORAM_MAINT_TITLE");
    ASSERT_NE(title, asked.end());
    EXPECT_GT(title, std::find(asked.begin(), asked.end(), "GLOBAL_MOD_UNEXPECTED"));
    EXPECT_GE(disk.count(FaultyFileSystem::Operation::List), 1U);
    user().finish();

    texts->asked.clear();
    disk.resetCounts();
    tell();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "MORAM_MAINT_TITLE"), 0);
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::List), 0U);
}

TEST_P(FailureBox, HasAFormApartFromTheOnesThatAreShown) {
    tell();
    texts->asked.clear();
    frmMORAMMaintenance form;
    user().onForm("frmMORAMMaintenance", [](User& u) { u.click("btnCancel"); });
    form.Show();
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_MAINT_TITLE"), 2);
    texts->asked.clear();
    tell();
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "MORAM_MAINT_TITLE"), 0);
}

TEST_P(FailureBox, GoesOnAtTheNextStatement) {
    std::string trace;
    const auto run = [&] {
        OnError on{"form:doing"};
        EXPECT_TRUE(on([&] { trace += "a"; }));
        EXPECT_FALSE(on([&] {
            trace += "b";
            throw Error(5, "gone");
        }));
        EXPECT_TRUE(on([&] { trace += "c"; }));
    };
    EXPECT_EQ(boxOf(run).text, failureText("form:doing", "gone"));
    EXPECT_EQ(trace, "abc");
}

TEST_P(FailureBox, TakesAFailedTestForTrue) {
    const auto run = [&] {
        OnError on{"form:doing"};
        EXPECT_TRUE(on.test([] { return true; }));
        EXPECT_FALSE(on.test([] { return false; }));
        EXPECT_TRUE(on.test([]() -> bool { throw Error(5, "gone"); }));
    };
    EXPECT_EQ(boxOf(run).text, failureText("form:doing", "gone"));
}

TEST_P(FailureBox, DoesNotComeUpWhereFailuresAreIgnored) {
    const auto fail = [] { throw Error(5, "gone"); };
    const auto failTest = []() -> bool { throw Error(5, "gone"); };
    OnError on{"form:doing"};
    on.resumeNext();
    EXPECT_FALSE(on(fail));
    EXPECT_TRUE(on.test(failTest));
    OnError silent = OnError::ignoring();
    EXPECT_FALSE(silent(fail));
    EXPECT_TRUE(silent.test(failTest));
    EXPECT_TRUE(user().boxes().empty());
    on.standard();
    EXPECT_EQ(boxOf([&] { on(fail); }).text, failureText("form:doing", "gone"));
}

TEST_P(FailureBox, TellsWhateverIsThrown) {
    struct Case {
        std::function<void()> statement;
        std::string description;
    };
    const std::vector<Case> cases{
        {[] { throw std::runtime_error("broken pipe"); }, "broken pipe"},
        {[] { throw std::out_of_range("too far"); }, "too far"},
        {[] { throw Error(5, "ours"); }, "ours"},
        {[] { throw std::runtime_error(""); }, "Unexpected failure"},
        {[] { throw Error(5, ""); }, "Unexpected failure"},
        {[] { throw 42; }, "Unexpected failure"},
        {[] { throw std::string("text"); }, "Unexpected failure"},
        {[] { throw "literal"; }, "Unexpected failure"},
    };
    for (const Case& each : cases) {
        OnError on{"form:doing"};
        EXPECT_EQ(boxOf([&] { on(each.statement); }).text,
                  failureText("form:doing", each.description));
    }
}

TEST_P(FailureBox, IsNotEndedByTheDialogItStandsIn) {
    putFullSession("MINE", {"CSV"});
    user().onForm("frmMORAMConfig", [this](User& u) {
        tell();
        EXPECT_EQ(u.formName(), "frmMORAMConfig");
        EXPECT_EQ(u.see("txtDisplayName").text, "MINE");
        u.click("btnCancel");
    });
    frmMORAMConfig form;
    form.init("MINE");
    form.Show();
    EXPECT_EQ(form.Result(), 1);
}

TEST_P(FailureBox, AfterAFailedSaveTheOldFileIsDeletedAllTheSame) {
    putProgram("/programs/parts.exe");
    putFormat("CSV");
    putFullSession("OLD", {"CSV"});
    disk.failOn(FaultyFileSystem::Operation::Save, "NEW.vla");
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:ApplyChanges")) << box.text;
        return answer::Ok;
    });
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:ApplyChanges")) << box.text;
        return answer::Ok;
    });
    user().onForm("frmMORAMConfig", [](User& u) {
        u.type("txtDisplayName", "NEW");
        u.click("btnOK");
    });
    std::string name = "OLD";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "NEW");
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(FailureBox, AFormatThatCanNotBeReadMakesOneBoxAndNoFormat) {
    memory->save(ItemPath::item(formatFolder, "BAD"), "no record");
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "ConfigGlobalModule:AddFDToConfigPartFormats"));
        return answer::Ok;
    });
    EXPECT_FALSE(AddFDToConfigPartFormats("BAD"));
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(FailureBox, DoesNotComeUpForAFailureInAHandlerThatNobodyGuards) {
    putFullSession("MINE", {"CSV"});
    g_TallyvanePartFormat = "CSV";
    user().onForm("frmMORAMConfig", [this](User& u) {
        // The sub-dialog asks for a text without a handler of its own.
        texts->missing = {"BUTTON_OK"};
        u.click("btnTallyvane");
        EXPECT_TRUE(u.boxes().empty());
        EXPECT_EQ(u.formName(), "frmMORAMConfig");
        EXPECT_TRUE(u.canUse("btnCancel"));
        u.click("btnCancel");
    });
    std::string name = "MINE";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
}

/// A host's manager that throws what no manager should.
template <class Thrown>
class ThrowingTexts : public ResourceManager {
  public:
    explicit ThrowingTexts(Thrown thrown) : m_thrown(std::move(thrown)) {}
    std::string GetString(const std::string&) override { throw m_thrown; }
    Font GetFont(long) override { throw m_thrown; }

  private:
    Thrown m_thrown;
};

TEST_P(FailureBox, SurvivesAManagerThatThrowsAnything) {
    putFullSession("MINE", {"CSV"});
    const std::vector<std::shared_ptr<ResourceManager>> managers{
        std::make_shared<ThrowingTexts<int>>(1),
        std::make_shared<ThrowingTexts<std::string>>("text"),
        std::make_shared<ThrowingTexts<std::bad_alloc>>(std::bad_alloc()),
        std::make_shared<ThrowingTexts<std::logic_error>>(std::logic_error("")),
    };
    for (const auto& manager : managers) {
        component.InitResourceManager(manager);
        const SeenBox box = tell();
        EXPECT_EQ(box.text, "");
        EXPECT_EQ(box.title, "");
        user().onForm("frmMORAMConfig", [](User& u) {
            EXPECT_EQ(u.see("btnCancel").caption, "Cancel");
            EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
            u.click("btnCancel");
        });
        std::string name = "MINE";
        EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
        EXPECT_NO_THROW(user().finish());
    }
}

/// A view that fails where it is told to, and keeps the boxes.
class FailingView : public View {
  public:
    bool boxesFail = false;
    std::vector<MessageRequest> boxes;

    void showModal(Form& form) override { userInput().closeByFrame(form); }
    int showMessage(const MessageRequest& box) override {
        boxes.push_back(box);
        if (boxesFail) throw 7;
        return answer::Ok;
    }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form&, bool) override { throw std::runtime_error("no window"); }
    long deviceContext(Form&) override { return 0; }
};

/// The failure box without a person in front of it.
class FailureBoxOnAFailingView : public ::testing::Test {
  protected:
    void SetUp() override {
        ConfigGlobalModule::reset();
        resetGlobalError();
        setFileSystem(memory.get());
        installView(view);
        g_ResMgr = std::make_shared<TestTexts>();
    }
    void TearDown() override {
        installView(nullptr);
        setFileSystem(nullptr);
        ConfigGlobalModule::reset();
        resetGlobalError();
    }

    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    std::shared_ptr<FailingView> view = std::make_shared<FailingView>();
};

TEST_F(FailureBoxOnAFailingView, DoesNotRecurseWhenItsFormFailsToLoad) {
    GlobalError("VLWYNConfig", "form:doing", 5, "gone");
    // The form's load raises its window twice; both failures are told by the same form, and then
    // comes the one that it was loaded for.
    ASSERT_EQ(view->boxes.size(), 3U);
    for (const std::size_t i : {0U, 1U}) {
        EXPECT_NE(view->boxes[i].text.find("{GLOBAL_MOD_PROCEDURE} frmMORAMMaintenance:Form_Load"),
                  std::string::npos);
        EXPECT_NE(view->boxes[i].text.find(": no window\r\n"), std::string::npos);
    }
    EXPECT_NE(view->boxes[2].text.find(": gone\r\n"), std::string::npos);
    for (const MessageRequest& box : view->boxes) {
        ASSERT_NE(box.owner, nullptr);
        EXPECT_EQ(box.owner, view->boxes[0].owner);
        EXPECT_EQ(box.owner->name(), "frmMORAMMaintenance");
        EXPECT_FALSE(box.owner->visible());
        EXPECT_TRUE(box.owner->loaded());
    }
}

TEST_F(FailureBoxOnAFailingView, StaysLoadedForGood) {
    GlobalError("VLWYNConfig", "form:doing", 5, "first");
    Form* const owner = view->boxes.back().owner;
    view->boxes.clear();
    GlobalError("VLWYNConfig", "form:doing", 5, "second");
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].owner, owner);
    EXPECT_TRUE(owner->loaded());
}

TEST_F(FailureBoxOnAFailingView, ShowsNothingWhenTheBoxItselfFails) {
    view->boxesFail = true;
    EXPECT_NO_THROW(GlobalError("VLWYNConfig", "form:doing", 5, "gone"));
    std::string trace;
    OnError on{"form:doing"};
    on([] { throw Error(5, "gone"); });
    on([&] { trace += "behind"; });
    EXPECT_EQ(trace, "behind");
}

TEST_F(FailureBoxOnAFailingView, AnOperationEndsWithItsUsualValue) {
    WYNConfig component;
    std::string name = "mine";
    EXPECT_NO_THROW(component.init("/nowhere/"));
    EXPECT_NO_THROW(component.showMORAMConfigDlg(name));
    EXPECT_EQ(name, "MINE");
}

TEST(FailureBoxWithoutAView, IsPassedOverInSilence) {
    ConfigGlobalModule::reset();
    resetGlobalError();
    const auto memory = makeMemoryFileSystem();
    setFileSystem(memory.get());
    installView(nullptr);
    WYNConfig component;
    EXPECT_NO_THROW(component.init("/nowhere/"));
    EXPECT_EQ(g_SessionFolder, "/nowhere/MORAM\\");
    EXPECT_FALSE(memory->folderExists("/nowhere"));
    setFileSystem(nullptr);
    ConfigGlobalModule::reset();
    resetGlobalError();
}

}  // namespace
}  // namespace wynconfig
