// The texts and the font of the dialogs: by key from the host's manager, all or nothing, and in
// English without one.
#include <algorithm>
#include <set>

#include "services/texts.h"
#include "support/all_dialogs.h"
#include "support/caption_tables.h"
#include "support/desk.h"
#include "support/raised.h"
#include "support/text_keys.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

using Table = std::vector<KeyedText>;

const std::map<std::string, Table>& tables() {
    static const std::map<std::string, Table> all{
        {"frmMORAMConfig", kSessionTexts},          {"dlgAdvConfig", kAdvancedTexts},
        {"frmTallyvaneConfig", kFileWriterTexts},   {"frmAddMORAMConfig", kAddTexts},
        {"frmMORAMMaintenance", kMaintenanceTexts}, {"frmPartNumberFormat", kPartFormatTexts},
        {"dlgSingleEntry", kSingleEntryTexts},      {"frmSessionManager", kManagerTexts},
    };
    return all;
}

/// Captions that no key changes.
const std::map<std::string, Captions> kFixedTexts{
    {"frmMORAMConfig",
     {{"btnAdd", ">"}, {"btnRemove", "<"}, {"frmPartFormat", ""}, {"lblDisplayName2", ""}}},
    {"dlgAdvConfig", {{"Frame1", ""}}},
    {"frmTallyvaneConfig", {}},
    {"frmAddMORAMConfig", {{"frmSession", ""}}},
    {"frmMORAMMaintenance", {}},
    {"frmSessionManager", {}},
    {"frmPartNumberFormat", kVinTexts},
    {"dlgSingleEntry", {}},
};

class Texts : public Desk {
  protected:
    /// Shows a dialog, looks at it, and cancels it.
    void look(const Dialog& dialog, const User::Script& script) {
        const auto form = dialog.make();
        user().onForm(dialog.name, [&](User& u) {
            script(u);
            u.pressEscape();
        });
        form->Show();
        form->Unload();
        EXPECT_TRUE(user().boxes().empty()) << dialog.name;
        EXPECT_NO_THROW(user().finish()) << dialog.name;
    }
    void expectDefaults(const Dialog& dialog) {
        look(dialog, [&](User& u) {
            for (const KeyedText& text : tables().at(dialog.name))
                EXPECT_EQ(captionSeenAt(u, text.place), text.byDefault) << text.place;
            expectFixed(u, dialog);
        });
    }
    static void expectFixed(User& u, const Dialog& dialog) {
        for (const auto& [name, caption] : kFixedTexts.at(dialog.name))
            EXPECT_EQ(u.see(name).caption, caption) << name;
    }
};
ON_EVERY_VIEW(Texts);

TEST_P(Texts, ComeByTheirKeys) {
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        look(dialog, [&](User& u) {
            for (const KeyedText& text : tables().at(dialog.name))
                EXPECT_EQ(captionSeenAt(u, text.place), "{" + text.key + "}") << text.place;
            expectFixed(u, dialog);
        });
    }
}

TEST_P(Texts, CoverEveryControlWithACaption) {
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        std::set<std::string> known;
        for (const KeyedText& text : tables().at(dialog.name)) known.insert(text.place);
        for (const auto& [name, caption] : kFixedTexts.at(dialog.name)) known.insert(name);
        const auto form = dialog.make();
        for (const Control* control : form->controls()) {
            if (!control->hasFace() || !dynamic_cast<const CaptionedControl*>(control)) continue;
            EXPECT_TRUE(known.contains(std::string(control->name()))) << control->name();
        }
    }
}

TEST_P(Texts, AreAllDefaultsWhenAnyOneKeyFails) {
    for (const Dialog& dialog : allDialogs()) {
        std::set<std::string> keys;
        for (const KeyedText& text : tables().at(dialog.name)) keys.insert(text.key);
        for (const std::string& key : keys) {
            SCOPED_TRACE(dialog.name + " without " + key);
            texts->missing = {key};
            expectDefaults(dialog);
        }
    }
}

TEST_P(Texts, AreAllDefaultsWithoutAManager) {
    component.InitResourceManager(nullptr);
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        expectDefaults(dialog);
    }
}

TEST_P(Texts, MayBeEmpty) {
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        const Table& table = tables().at(dialog.name);
        const std::string emptied = table.back().key;
        texts->texts = {{emptied, ""}};
        look(dialog, [&](User& u) {
            for (const KeyedText& text : table)
                EXPECT_EQ(captionSeenAt(u, text.place),
                          text.key == emptied ? std::string() : "{" + text.key + "}")
                    << text.place;
        });
    }
}

TEST_P(Texts, AreAskedInTheOrderOfTheTable) {
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        texts->asked.clear();
        look(dialog, [](User&) {});
        std::vector<std::string> expected;
        for (const KeyedText& text : tables().at(dialog.name)) {
            expected.push_back(text.key);
            // The title goes to the caption bar and to the form itself here.
            if (text.key == "MORAM_MAINT_TITLE" || text.key == "SESSION_MANAGER_TITLE")
                expected.push_back(text.key);
        }
        // The caption of its boxes comes last.
        if (dialog.name == "frmMORAMConfig") expected.push_back("BUTTON_OK");
        EXPECT_EQ(texts->asked, expected);
    }
}

TEST_P(Texts, ALaterManagerServesTheDialogsShownLater) {
    const auto later = std::make_shared<TestTexts>();
    later->texts = {{"ADD_MORAM_CONFIG_TITLE", "Neu"}};
    const Dialog adding = dialogOf<frmAddMORAMConfig>("frmAddMORAMConfig");
    look(adding, [&](User& u) {
        component.InitResourceManager(later);
        EXPECT_EQ(u.formTitle(), "{ADD_MORAM_CONFIG_TITLE}");
    });
    look(adding, [](User& u) { EXPECT_EQ(u.formTitle(), "Neu"); });
}

TEST_P(Texts, TheBoxCaptionOfTheSessionDialogFallsBackToItsOwnDefault) {
    for (const bool missing : {false, true}) {
        if (missing) texts->missing = {"MORAM_CONFIG_TITLE"};
        user().onForm("frmMORAMConfig", [&](User& u) {
            u.onBox([&](const SeenBox& box) {
                EXPECT_EQ(box.okCaption, missing ? "Ok" : "{BUTTON_OK}");
                return answer::Ok;
            });
            u.click("btnOK");
            EXPECT_EQ(u.see("btnOK").caption, missing ? "OK" : "{BUTTON_OK}");
            u.click("btnCancel");
        });
        std::string name;
        EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
        EXPECT_NO_THROW(user().finish());
    }
}

TEST_P(Texts, TheBoxCaptionOfTheAddDialogIsEmptyWithoutItsKey) {
    texts->missing = {"BUTTON_OK"};
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, failureText("frmAddMORAMConfig:init", "no text for BUTTON_OK"));
        EXPECT_EQ(box.okCaption, "");
        return answer::Ok;
    });
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.onBox([](const SeenBox& box) {
            EXPECT_EQ(box.text, "{MORAM_CONFIG_MSG_ENTER_NEW_NAME}");
            EXPECT_EQ(box.okCaption, "");
            return answer::Ok;
        });
        u.click("btnOK");
        EXPECT_EQ(u.see("btnOK").caption, "OK");
        u.click("btnCancel");
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
}

TEST_P(Texts, TheFileDialogsTitleIsSetAmongTheDefaultsAlone) {
    frmMORAMConfig keyed;
    EXPECT_EQ(keyed.CommonDialog.caption(), "");
    texts->missing = {"BUTTON_APPLY"};
    frmMORAMConfig defaults;
    EXPECT_EQ(defaults.CommonDialog.caption(), "Select an application");
}

TEST_P(Texts, TheCaptionBarIsBoundWhileTheFormIsLoaded) {
    for (const Dialog& dialog : allDialogs()) {
        const auto form = dialog.make();
        auto* bar = dynamic_cast<FormCaption*>(form->control("UniCaption1"));
        ASSERT_NE(bar, nullptr) << dialog.name;
        EXPECT_FALSE(bar->bound()) << dialog.name;
        EXPECT_NE(bar->caption(), "") << dialog.name;
        EXPECT_TRUE(bar->bound()) << dialog.name;
        EXPECT_EQ(form->title(), bar->caption()) << dialog.name;
        form->Unload();
        EXPECT_FALSE(bar->bound()) << dialog.name;
    }
}

TEST_P(Texts, TheFontIsOneForTheFormAndAllItsControls) {
    texts->font = {"Serif", 11.5, true, false};
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        const auto form = dialog.make();
        form->hDC();
        const auto font = form->font();
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(*font, texts->font);
        for (const Control* control : form->controls())
            EXPECT_EQ(control->font(), control->hasFace() ? font : nullptr) << control->name();
        form->Unload();
    }
}

TEST_P(Texts, AFontThatFailsLeavesTheFormWithItsOwn) {
    texts->fontFailing = true;
    for (const Dialog& dialog : allDialogs()) {
        SCOPED_TRACE(dialog.name);
        const auto form = dialog.make();
        for (const Control* control : form->controls()) EXPECT_EQ(control->font(), nullptr);
        EXPECT_EQ(form->font(), nullptr);
        look(dialog, [&](User& u) {
            EXPECT_EQ(u.formTitle(), "{" + tables().at(dialog.name).front().key + "}");
        });
    }
}

/// A form with every kind of control that can bear a text, and one of each that has no font.
class Sample : public Form {
  public:
    Sample() : Form("Sample") {}

    FormCaption bar{*this, "bar"};
    Label label{*this, "label", "design"};
    MsgBox box{*this, "box"};
    Tabs tabs{*this, "tabs", {"one", "two"}};
    BrowseFolder browse{*this, "browse"};
    Edit edit{*this, "edit"};
    wynconfig::CommonDialog dialog{*this, "dialog"};
    ListView list{*this, "list"};
    Button cancel{*this, "cancel"};

  protected:
    FormLayout declareLayout() override {
        return {layout::column({layout::single(cancel)}), &cancel, &cancel};
    }
};

TEST_P(Texts, AControlWithoutAFontDoesNotDisturbTheOthers) {
    Sample form;
    for (Control* control :
         std::initializer_list<Control*>{&form.bar, &form.box, &form.browse, &form.dialog})
        EXPECT_EQ(raisedBy([&] { control->setFont(nullptr); }).number(), errc::NoSuchProperty);
    SetFormFont(form);
    ASSERT_NE(form.font(), nullptr);
    EXPECT_EQ(*form.font(), texts->font);
    for (const Control* control : form.controls())
        EXPECT_EQ(control->font(), control->hasFace() ? form.font() : nullptr) << control->name();
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Texts, WithoutAFontTheControlsGetTheOneThatTheFormHas) {
    const auto own = std::make_shared<const Font>(Font{"Own", 8.0, false, true});
    for (const bool withManager : {true, false}) {
        Sample form;
        form.setFont(own);
        texts->fontFailing = true;
        if (!withManager) component.InitResourceManager(nullptr);
        SetFormFont(form);
        EXPECT_EQ(form.font(), own);
        EXPECT_EQ(form.label.font(), own);
        EXPECT_EQ(form.list.font(), own);
    }
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(Texts, ATableIsWrittenInItsOrderAndAllOrNothing) {
    Sample form;
    std::string field = "before";
    const auto apply = [&] {
        applyTexts({{&form.bar, "TITLE", "Title"},
                    {&form, "OWN", "Own"},
                    {TabCaption{&form.tabs, 1}, "TAB", "Tab"},
                    {&form.label, "LABEL", "Label"},
                    {&form.dialog, {}, "Dialog"},
                    {&field, "FIELD", "Field"}});
    };
    apply();
    EXPECT_EQ(texts->asked, (std::vector<std::string>{"TITLE", "OWN", "TAB", "LABEL", "FIELD"}));
    EXPECT_EQ(form.bar.caption(), "{TITLE}");
    EXPECT_EQ(form.caption(), "{OWN}");
    EXPECT_EQ(form.tabs.caption(0), "one");
    EXPECT_EQ(form.tabs.caption(1), "{TAB}");
    EXPECT_EQ(form.label.caption(), "{LABEL}");
    EXPECT_EQ(form.dialog.caption(), "");
    EXPECT_EQ(field, "{FIELD}");

    texts->asked.clear();
    texts->missing = {"LABEL"};
    apply();
    EXPECT_EQ(texts->asked, (std::vector<std::string>{"TITLE", "OWN", "TAB", "LABEL"}));
    EXPECT_EQ(form.bar.caption(), "Title");
    EXPECT_EQ(form.caption(), "Own");
    EXPECT_EQ(form.tabs.caption(1), "Tab");
    EXPECT_EQ(form.label.caption(), "Label");
    EXPECT_EQ(form.dialog.caption(), "Dialog");
    EXPECT_EQ(field, "Field");
}

TEST_P(Texts, ARowWithoutADefaultTextGetsTheDesignCaption) {
    Sample form;
    form.label.setCaption("changed");
    form.tabs.setCaption(1, "changed");
    texts->missing = {"GONE"};
    applyTexts(
        {{&form.label, "LABEL"}, {TabCaption{&form.tabs, 1}, "TAB"}, {&form.bar, "GONE", "Bar"}});
    EXPECT_EQ(form.label.caption(), "design");
    EXPECT_EQ(form.tabs.caption(1), "two");
    EXPECT_EQ(form.bar.caption(), "Bar");
}

TEST_P(Texts, AFailureAmongTheDefaultsPassesToTheCaller) {
    Sample form;
    const Error error = raisedBy([&] { applyTexts({{TabCaption{&form.tabs, 2}, "TAB", "Tab"}}); });
    EXPECT_EQ(error.number(), errc::InvalidCall);
}

TEST_P(Texts, AskingWithoutAManagerRaises) {
    component.InitResourceManager(nullptr);
    EXPECT_EQ(raisedBy([] { GetString("BUTTON_OK"); }).number(), errc::ObjectNotSet);
}

TEST_P(Texts, AFailedPieceOfAMessageIsEmptyAndToldByABox) {
    texts->missing = {"GONE"};
    OnError on{"form:doing"};
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, failureText("form:doing", "no text for GONE"));
        return answer::Ok;
    });
    EXPECT_EQ(fetchString(on, "GONE"), "");
    EXPECT_EQ(fetchString(on, "THERE"), "{THERE}");
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(Texts, OfABrowseDialogFallBackOneByOne) {
    const auto expectTexts = [](const BrowseTexts& fetched, const std::string& title,
                                const std::string& ok, const std::string& cancel) {
        EXPECT_EQ(fetched.title, title);
        EXPECT_EQ(fetched.ok, ok);
        EXPECT_EQ(fetched.cancel, cancel);
    };
    expectTexts(fetchBrowseTexts("TITLE", "By default"), "{TITLE}", "{BUTTON_OK}",
                "{BUTTON_CANCEL}");
    texts->missing = {"TITLE"};
    texts->texts = {{"BUTTON_CANCEL", ""}};
    expectTexts(fetchBrowseTexts("TITLE", "By default"), "By default", "{BUTTON_OK}", "Cancel");
    component.InitResourceManager(nullptr);
    expectTexts(fetchBrowseTexts("TITLE", "By default"), "By default", "OK", "Cancel");
    EXPECT_TRUE(user().boxes().empty());
}

/// A view and a manager that keep what they are asked.
class HandleView : public View {
  public:
    std::vector<std::string> steps;

    void showModal(Form&) override {}
    int showMessage(const MessageRequest&) override { return answer::Ok; }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form&, bool topMost) override { steps.push_back(topMost ? "top" : "not top"); }
    long deviceContext(Form&) override {
        steps.push_back("handle");
        return 77;
    }
};

class RecordingTexts : public TestTexts {
  public:
    explicit RecordingTexts(std::shared_ptr<HandleView> view) : m_view(std::move(view)) {}
    std::string GetString(const std::string& key) override {
        if (m_view->steps.back() != "text") m_view->steps.push_back("text");
        return TestTexts::GetString(key);
    }
    Font GetFont(long handle) override {
        m_view->steps.push_back("font for " + std::to_string(handle));
        return TestTexts::GetFont(handle);
    }

  private:
    std::shared_ptr<HandleView> m_view;
};

TEST_P(Texts, EveryDialogLoadsInTheSameOrder) {
    for (const Dialog& dialog : allDialogs()) {
        const auto view = std::make_shared<HandleView>();
        installView(view);
        component.InitResourceManager(std::make_shared<RecordingTexts>(view));
        const auto form = dialog.make();
        form->hDC();
        const bool raised = std::set<std::string>{"frmAddMORAMConfig", "frmMORAMMaintenance",
                                                  "frmMORAMConfig", "frmSessionManager"}
                                .contains(dialog.name);
        std::vector<std::string> expected;
        if (raised) expected = {"top", "not top"};
        expected.insert(expected.end(), {"handle", "font for 77", "text", "handle"});
        EXPECT_EQ(view->steps, expected) << dialog.name;
        EXPECT_EQ(form->control("UniCaption1")->form().title(),
                  "{" + tables().at(dialog.name).front().key + "}");
        form->Unload();
    }
}

struct WordyTexts : TestTexts {
    std::string word;
    std::vector<std::string> words;  ///< the keys in the order of their asking
    std::string FindString(const std::string& key) override {
        words.push_back(key);
        if (word.empty()) throw 7;
        return word;
    }
};

TEST_P(Texts, WhatViewsSayIsTheHostsOrElseEnglish) {
    EXPECT_EQ(viewWord("VIEW_FILTER"), "Filter");
    EXPECT_TRUE(texts->asked.empty());
    const auto wordy = std::make_shared<WordyTexts>();
    component.InitResourceManager(wordy);
    EXPECT_EQ(viewWord("VIEW_FILTER"), "Filter") << "its manager raises";
    wordy->word = "Sieben";
    EXPECT_EQ(viewWord("VIEW_EMPTY"), "Sieben");
    EXPECT_EQ(wordy->words, (std::vector<std::string>{"VIEW_FILTER", "VIEW_EMPTY"}));
    EXPECT_TRUE(wordy->asked.empty());
    component.InitResourceManager(nullptr);
    EXPECT_EQ(viewWord("VIEW_FILTER"), "Filter");
    EXPECT_EQ(wordy.use_count(), 1);
    EXPECT_EQ(viewWord("NO_SUCH_WORD"), "");
}

TEST_P(Texts, WhatViewsSayComesInTheLanguageOfTheDialogs) {
    component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "de"));
    EXPECT_EQ(viewWord("VIEW_FILTER"), "Filtern");
    component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    for (const std::string& key : allKeys()) {
        if (!key.starts_with("VIEW_")) continue;
        const std::string given = viewWord(key);
        component.InitResourceManager(nullptr);
        EXPECT_EQ(viewWord(key), given) << "what stands in for it is the same";
        component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    }
}

}  // namespace
}  // namespace wynconfig
