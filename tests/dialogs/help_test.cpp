// What the dialogs tell whoever asks for help: of each field, in each language, and not before.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/all_dialogs.h"
#include "support/desk.h"
#include "support/languages.h"
#include "support/raised.h"
#include "support/text_keys.h"
#include "wynconfig/layout.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {
namespace {

/// Texts by the rule of the tests, and of help as well.
class HelpfulTexts : public TestTexts {
  public:
    std::vector<std::string> helped;  ///< the keys of help in the order of their asking
    bool helpFailing = false;

    std::string FindString(const std::string& key) override {
        if (!key.starts_with("HELP_")) return {};  // a word of the view's
        helped.push_back(key);
        if (helpFailing) throw std::runtime_error("no help");
        return "help {" + key + "}";
    }
};

/// What a person can fill in, tick or choose.
bool isField(const Control& control) {
    switch (control.kind()) {
        case ControlKind::Edit:
        case ControlKind::ListView:
        case ControlKind::ComboBox:
        case ControlKind::OptionButton:
        case ControlKind::CheckBox:
            return true;
        default:
            return false;
    }
}

/// The buttons that say by their caption all there is to say.
bool endsDialog(Form& form, const Control& control) {
    return &control == form.layout().defaultButton || &control == form.layout().cancelButton;
}

class Help : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        component.InitResourceManager(helpful);
        putFormat("CSV");
        putFullSession("DESK", {"CSV"});
    }

    /// Shows a dialog on a session or a new part format, and has a person look at it.
    void show(const Dialog& dialog, const std::function<void(User&, Form&)>& look) {
        const auto form = dialog.make();
        if (auto* session = dynamic_cast<frmMORAMConfig*>(form.get())) session->init("DESK");
        if (auto* editor = dynamic_cast<frmPartNumberFormat*>(form.get())) editor->init("");
        if (auto* manager = dynamic_cast<frmSessionManager*>(form.get()))
            manager->init(true, "DESK");
        user().onForm(dialog.name, [&](User& u) {
            look(u, *form);
            if (form->loaded()) u.closeByFrame();
        });
        form->Show();
        user().finish();
    }
    void show(const std::string& name, const std::function<void(User&, Form&)>& look) {
        for (const Dialog& each : allDialogs()) {
            if (each.name == name) show(each, look);
        }
    }
    /// Calls for each control that is on the screen, on all tabs.
    static void forEachSeen(User& u, Form& form, const std::function<void(Control&)>& look) {
        const auto all = [&] {
            for (Control* each : controlsOf(form.layout().body)) {
                if (u.see(each->name()).visible) look(*each);
            }
        };
        all();
        if (!form.control("SSTab2")) return;
        u.changeTab("SSTab2", 1);
        all();
    }

    std::shared_ptr<HelpfulTexts> helpful = std::make_shared<HelpfulTexts>();
};
ON_EVERY_VIEW(Help);

TEST_P(Help, IsThereForEachFieldAndButtonInEachLanguage) {
    for (const std::string& language : allLanguages()) {
        component.InitResourceManager(textsIn(language));
        for (const Dialog& dialog : allDialogs()) {
            SCOPED_TRACE(language + " " + dialog.name);
            int fields = 0;
            show(dialog, [&](User& u, Form& form) {
                forEachSeen(u, form, [&](Control& control) {
                    const bool button = control.kind() == ControlKind::Button;
                    const std::string help = u.help(control.name());
                    EXPECT_EQ(help, form.help(&control)) << control.name();
                    if (isField(control) || (button && !endsDialog(form, control))) {
                        EXPECT_FALSE(help.empty()) << control.name();
                        ++fields;
                    } else {
                        EXPECT_EQ(help, "") << control.name();
                    }
                });
            });
            EXPECT_GT(fields, 0);
        }
    }
}

TEST_P(Help, HasEachOfItsKeysInUse) {
    for (const Dialog& dialog : allDialogs()) show(dialog, [](User& u, Form&) { u.readHelp(); });
    EXPECT_EQ(std::set(helpful->helped.begin(), helpful->helped.end()),
              std::set(helpKeys().begin(), helpKeys().end()));
}

TEST_P(Help, IsAskedForByNobodyButThePerson) {
    component.InitResourceManager(texts);
    std::vector<std::string> usual;
    show("dlgAdvConfig", [&](User&, Form&) { usual = texts->asked; });
    component.InitResourceManager(helpful);
    show("dlgAdvConfig", [&](User& u, Form&) {
        u.type("txtProgramLaunchDelay", "2");
        u.pressTab();
        EXPECT_EQ(helpful->helped, std::vector<std::string>{});
        EXPECT_EQ(u.help("txtProgramLaunchDelay"), "help {HELP_LAUNCH_DELAY}");
        EXPECT_EQ(std::set(helpful->helped.begin(), helpful->helped.end()),
                  std::set<std::string>{"HELP_LAUNCH_DELAY"});
        u.readHelp();
    });
    EXPECT_FALSE(usual.empty());
    EXPECT_EQ(helpful->asked, usual);
}

TEST_P(Help, ThatRaisesIsNoneAndShowsNoBox) {
    helpful->helpFailing = true;
    show("frmMORAMConfig", [&](User& u, Form&) {
        EXPECT_EQ(u.help("txtDisplayName"), "");
        EXPECT_EQ(u.readHelp(), std::vector<std::string>{});
        EXPECT_EQ(u.boxes().size(), 0U);
    });
    EXPECT_FALSE(helpful->helped.empty());
}

TEST_P(Help, IsNotThereWhereTheHostHasNone) {
    for (const std::shared_ptr<ResourceManager>& manager :
         std::vector<std::shared_ptr<ResourceManager>>{texts, nullptr}) {
        component.InitResourceManager(manager);
        show("dlgAdvConfig", [&](User& u, Form&) {
            EXPECT_EQ(u.help("txtWindowTitle"), "");
            EXPECT_EQ(u.readHelp(), std::vector<std::string>{});
        });
    }
}

TEST_P(Help, OfADialogNamesEachFieldOnceWithItsText) {
    component.InitResourceManager(textsIn("en"));
    show("dlgAdvConfig", [](User& u, Form& form) {
        const std::vector<std::string> lines = u.readHelp();
        const std::vector<std::string> named{
            "Window Title",         "Contains / Starts with / Matches",
            "Window Class",         "Disable Program Launch",
            "Program Launch Delay", "Window Title/Class Delay"};
        ASSERT_EQ(lines.size(), 2 + 2 * named.size());
        EXPECT_EQ(lines[0], "Advanced Configuration");
        EXPECT_EQ(lines[1], form.help());
        for (std::size_t i = 0; i < named.size(); ++i) EXPECT_EQ(lines[2 + 2 * i], named[i]);
        EXPECT_EQ(lines[3], u.help("txtWindowTitle"));
        EXPECT_EQ(lines[13], u.help("txtWindowTitleClassDelay"));
        EXPECT_EQ(u.formName(), "dlgAdvConfig");
    });
}

TEST_P(Help, OfADialogTellsOfBothTabsAndKeepsWhatWasTyped) {
    component.InitResourceManager(textsIn("en"));
    show("frmMORAMConfig", [](User& u, Form&) {
        u.type("txtDisplayName", "half a na");
        const std::vector<std::string> lines = u.readHelp();
        for (const char* name : {"Program Path", "Top / Bottom / Left / Right", "New",
                                 "Available Part Formats → Selected Part Formats"})
            EXPECT_EQ(std::count(lines.begin(), lines.end(), name), 1) << name;
        EXPECT_EQ(u.see("txtDisplayName").text, "half a na");
        EXPECT_TRUE(u.see("txtDisplayName").focus);
        // And once more.
        EXPECT_EQ(u.readHelp(), lines);
    });
}

TEST_P(Help, SaysNothingOfButtonsThatAreNotThere) {
    const auto form = std::make_unique<frmSessionManager>();
    form->init(false, "DESK");
    user().onForm("frmSessionManager", [](User& u) {
        const std::vector<std::string> lines = u.readHelp();
        EXPECT_EQ(lines, (std::vector<std::string>{"{SESSION_MANAGER_TITLE}", "help {HELP_MANAGER}",
                                                   "{MORAM_MAINT_LBL_SELECTSESSION}",
                                                   "help {HELP_SESSION_LIST}"}));
        EXPECT_THROW(u.help("btnAdd"), UserError);
        u.click("btnCancel");
    });
    form->Show();
    user().finish();
}

TEST_P(Help, IsThereForWhatIsSwitchedOff) {
    show("frmPartNumberFormat", [](User& u, Form&) {
        EXPECT_FALSE(u.see("txtPartPad").enabled);
        EXPECT_EQ(u.help("txtPartPad"), "help {HELP_PAD}");
        EXPECT_EQ(u.help("txtVINPad"), u.help("txtPartPad"));
    });
}

TEST_P(Help, OfATabThatIsNotOnTopIsOutOfReach) {
    show("frmMORAMConfig", [](User& u, Form&) {
        EXPECT_THROW(u.help("btnNew"), UserError);
        EXPECT_THROW(u.help("noSuchControl"), UserError);
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.help("btnNew"), "help {HELP_NEW_FORMAT}");
    });
}

}  // namespace
}  // namespace wynconfig
