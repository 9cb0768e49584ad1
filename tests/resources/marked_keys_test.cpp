// The keys that the captions mark, in every language: whatever a person can use has one, and no two
// that can be used at once have the same.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "platform/text/text.h"
#include "support/all_dialogs.h"
#include "support/desk.h"
#include "support/languages.h"
#include "support/text_keys.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {
namespace {

/// What has no key though a person can use it, and why.
const std::map<std::string, std::string> kWithoutKey = {
    {"frmMORAMConfig.btnAdd", "its caption is an arrow"},
    {"frmMORAMConfig.btnRemove", "its caption is an arrow"},
    {"frmPartNumberFormat.lstSpecialSymbols2", "it has no caption"},
    {"frmPartNumberFormat.chkFormatVIN", "its caption is the same in every language"},
    {"frmPartNumberFormat.txtVINFieldLength", "its caption is the same in every language"},
    {"frmPartNumberFormat.txtVINPad", "its caption is the same in every language"},
    {"frmPartNumberFormat.rdoVINLeft", "its caption is the same in every language"},
    {"frmPartNumberFormat.rdoVINRight", "its caption is the same in every language"},
};

/// A caption, and the control that it leads to.
struct Caption {
    std::string control;
    std::string text;
};

/// What a person sees of a dialog at once: all of it, or one tab and what stands around the tabs.
struct Sight {
    std::vector<Caption> captions;  ///< all that are seen
    std::vector<Caption> usable;    ///< those that lead to something to use
};

bool isBox(const Control& control) {
    const ControlKind kind = control.kind();
    return kind == ControlKind::Edit || kind == ControlKind::ListView ||
           kind == ControlKind::ComboBox;
}

std::string captionOf(const Control& control) {
    return static_cast<const CaptionedControl&>(control).caption();
}

void lookAtPart(const Layout& node, const Control* frame, Sight& around, std::vector<Sight>& tabs);

void lookAtTabs(const Layout& node, Sight& around, std::vector<Sight>& tabs) {
    const auto& control = static_cast<const Tabs&>(*node.control);
    for (int i = 0; i < control.count(); ++i) {
        const std::string place = std::string(control.name()) + "/" + std::to_string(i);
        around.captions.push_back({place, control.caption(i)});
        around.usable.push_back({place, control.caption(i)});
        Sight inside;
        std::vector<Sight> none;
        lookAtPart(node.children.at(static_cast<std::size_t>(i)), nullptr, inside, none);
        tabs.push_back(inside);
    }
}

/// @param frame  the frame around the node, whose caption is that of a box without a label
void lookAtPart(const Layout& node, const Control* frame, Sight& around, std::vector<Sight>& tabs) {
    if (node.kind == Layout::Kind::Tabs) return lookAtTabs(node, around, tabs);
    if (node.kind == Layout::Kind::Group) {
        frame = node.control;
        around.captions.push_back({std::string(frame->name()), captionOf(*frame)});
    } else if (node.control && node.kind != Layout::Kind::Pane) {
        const std::string name(node.control->name());
        if (node.label) around.captions.push_back({name, captionOf(*node.label)});
        if (isBox(*node.control)) {
            const Control* label = node.label ? node.label : frame;
            around.usable.push_back({name, label ? captionOf(*label) : ""});
        } else if (node.control->kind() != ControlKind::Label) {
            around.captions.push_back({name, captionOf(*node.control)});
            around.usable.push_back({name, captionOf(*node.control)});
        }
    }
    for (const Layout& each : node.children) lookAtPart(each, frame, around, tabs);
}

std::vector<Sight> sightsOf(Form& form) {
    Sight around;
    std::vector<Sight> tabs;
    lookAtPart(form.layout().body, nullptr, around, tabs);
    if (tabs.empty()) return {around};
    for (Sight& each : tabs) {
        each.captions.insert(each.captions.end(), around.captions.begin(), around.captions.end());
        each.usable.insert(each.usable.end(), around.usable.begin(), around.usable.end());
    }
    return tabs;
}

bool standsSeveralTimes(const std::string& caption, const Sight& sight) {
    return std::count_if(sight.captions.begin(), sight.captions.end(),
                         [&](const Caption& each) { return each.text == caption; }) > 1;
}

class MarkedKeys : public Desk {
  protected:
    /// Calls `look` with every dialog in every language.
    void lookAtEach(const std::function<void(Form&, const Sight&)>& look) {
        for (const std::string& language : allLanguages()) {
            SCOPED_TRACE(language);
            component.InitResourceManager(textsIn(language));
            for (const Dialog& dialog : allDialogs()) {
                SCOPED_TRACE(dialog.name);
                const auto form = dialog.make();
                form->Hide();
                for (const Sight& sight : sightsOf(*form)) look(*form, sight);
                form->Unload();
            }
        }
    }
};

TEST_P(MarkedKeys, AreDifferentForAllThatCanBeUsedAtOnce) {
    lookAtEach([](Form&, const Sight& sight) {
        std::map<std::string, std::string> taken;
        for (const Caption& each : sight.captions) {
            const std::string key = mnemonicOf(each.text);
            if (key.empty()) continue;
            const auto [other, isNew] = taken.emplace(key, each.control);
            EXPECT_TRUE(isNew) << key << " is the key of " << other->second << " and of "
                               << each.control << ": " << each.text;
        }
        EXPECT_FALSE(taken.empty());
    });
}

TEST_P(MarkedKeys, LeadToAllThatCanBeUsed) {
    std::map<std::string, std::string> unseen = kWithoutKey;
    lookAtEach([&](Form& form, const Sight& sight) {
        for (const Caption& each : sight.usable) {
            const Control* control = form.control(each.control);
            const std::string place = std::string(form.name()) + "." + each.control;
            // Enter and Escape press these two, and of equal captions no key could choose one.
            const bool without = control && (control == form.layout().defaultButton ||
                                             control == form.layout().cancelButton ||
                                             standsSeveralTimes(each.text, sight));
            unseen.erase(place);
            EXPECT_EQ(mnemonicOf(each.text).empty(), without || kWithoutKey.contains(place))
                << each.control << ": " << each.text;
        }
    });
    for (const auto& [place, reason] : unseen) ADD_FAILURE() << "there is no " << place;
}

INSTANTIATE_TEST_SUITE_P(Views, MarkedKeys, ::testing::Values("Scripted"),
                         [](const auto& each) { return std::string(each.param); });

TEST(Marks, StandOnceInCaptionsAndNowhereElse) {
    // A label of the Tallyvane dialog goes by the key of a title; a title is shown without its
    // mark.
    const std::regex captions(
        "(BUTTON|DIALOG)_.*|.*_(LBL|CHK|OPT|RDO|TAB)_.*|MORAM_CONFIG_MSG_PART_FORMAT");
    for (const std::string& language : allLanguages()) {
        const auto texts = textsIn(language);
        for (const std::string& key : allKeys()) {
            const std::string text = texts->GetString(key);
            const auto marks = std::count(text.begin(), text.end(), '&');
            EXPECT_LE(marks, std::regex_match(key, captions) ? 1 : 0)
                << language << " " << key << ": " << text;
            EXPECT_EQ(marks == 0, mnemonicOf(text).empty()) << language << " " << key;
        }
    }
    for (const char* key : {"BUTTON_OK", "BUTTON_CANCEL", "DIALOG_CAPTION"}) {
        for (const std::string& language : allLanguages())
            EXPECT_EQ(mnemonicOf(textsIn(language)->GetString(key)), "") << language << " " << key;
    }
}

TEST(Marks, StandAtTheSameCaptionsInEveryLanguage) {
    const auto english = textsIn("en");
    for (const std::string& language : allLanguages()) {
        const auto texts = textsIn(language);
        for (const std::string& key : allKeys()) {
            EXPECT_EQ(mnemonicOf(texts->GetString(key)).empty(),
                      mnemonicOf(english->GetString(key)).empty())
                << language << " " << key;
        }
    }
}

TEST(Marks, AreOnLettersThatTheLanguagesKeyboardHasWithoutShift) {
    const std::regex latin("[^&]*&[A-Za-z][^&]*");
    for (const std::string& language : allLanguages()) {
        const auto texts = textsIn(language);
        for (const std::string& key : allKeys()) {
            const std::string text = texts->GetString(key);
            const std::string letter = mnemonicOf(text);
            if (letter.empty()) continue;
            SCOPED_TRACE(language + " " + key + ": " + text);
            const auto code = characterAt(letter, 0).code;
            const bool isName = key == "BUTTON_TALLYVANE";
            if (language == "ar") {
                EXPECT_TRUE(code >= 0x0626 && code <= 0x064A);
            }
            if (language == "ja" || language == "zh-Hans" || (language == "ar" && isName)) {
                EXPECT_TRUE(text.ends_with("(&" + letter + ")"));
                EXPECT_EQ(plainCaption(text), text.substr(0, text.find("(&")));
                if (language != "ar") {
                    EXPECT_TRUE(code >= 'A' && code <= 'Z');
                }
            } else if (language == "ar") {
                EXPECT_NE(plainCaption(text).find(letter), std::string::npos);
            } else {
                EXPECT_TRUE(std::regex_match(text, latin));
                EXPECT_NE(UCase(plainCaption(text)).find(letter), std::string::npos);
            }
        }
    }
}

}  // namespace
}  // namespace wynconfig
