// The layouts of the dialogs: complete, without doubles, and with all that a person needs to find
// their way by keyboard and by screen reader.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/all_dialogs.h"
#include "wynconfig/layout.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

using Kind = Layout::Kind;

class DialogLayout : public ::testing::TestWithParam<Dialog> {
  protected:
    void SetUp() override { installView(nullptr); }

    std::unique_ptr<Form> form = GetParam().make();
    const Layout& body = form->layout().body;
};
INSTANTIATE_TEST_SUITE_P(All, DialogLayout, ::testing::ValuesIn(allDialogs()),
                         [](const auto& each) { return each.param.name; });

/// Calls for each node with those around it, from the outermost.
template <class Visit>
void walk(const Layout& node, std::vector<const Layout*>& around, const Visit& visit) {
    visit(node, around);
    around.push_back(&node);
    for (const Layout& child : node.children) walk(child, around, visit);
    around.pop_back();
}
template <class Visit>
void walk(const Layout& node, const Visit& visit) {
    std::vector<const Layout*> around;
    walk(node, around, visit);
}

bool needsALabel(const Control& control) {
    return control.kind() == ControlKind::Edit || control.kind() == ControlKind::ListView ||
           control.kind() == ControlKind::ComboBox;
}

bool isCaptionedGroup(const Layout* node) {
    return node->kind == Kind::Group && !static_cast<Frame*>(node->control)->caption().empty();
}

TEST_P(DialogLayout, HoldsEachControlWithAFaceOnce) {
    const std::vector<Control*> placed = controlsOf(body);
    for (Control* control : form->controls()) {
        EXPECT_EQ(std::count(placed.begin(), placed.end(), control), control->hasFace() ? 1 : 0)
            << control->name();
    }
    for (Control* control : placed) EXPECT_EQ(&control->form(), form.get()) << control->name();
}

TEST_P(DialogLayout, IsDeclaredWithoutLoadingTheForm) {
    EXPECT_FALSE(form->loaded());
}

TEST_P(DialogLayout, HasADefaultAndACancelButtonThatCanBeUsed) {
    const FormLayout& all = form->layout();
    ASSERT_NE(all.defaultButton, nullptr);
    ASSERT_NE(all.cancelButton, nullptr);
    EXPECT_NE(all.defaultButton, all.cancelButton);
    for (const Button* button : {all.defaultButton, all.cancelButton}) {
        EXPECT_TRUE(isSeen(body, *button)) << button->name();
        EXPECT_TRUE(button->enabled()) << button->name();
        EXPECT_TRUE(static_cast<bool>(button->Click)) << button->name();
    }
    form->Unload();
}

TEST_P(DialogLayout, GivesEachBoxAndListALabelOrAGroupWithACaption) {
    walk(body, [&](const Layout& node, const std::vector<const Layout*>& around) {
        if (!node.control || !needsALabel(*node.control)) return;
        const bool labelled =
            (node.kind == Kind::Field || node.kind == Kind::Titled) && node.label != nullptr;
        EXPECT_TRUE(labelled || std::any_of(around.begin(), around.end(), isCaptionedGroup))
            << node.control->name();
    });
    form->Unload();
}

TEST_P(DialogLayout, GivesEachButtonAndChoiceACaption) {
    for (Control* control : form->controls()) {
        const ControlKind kind = control->kind();
        if (kind == ControlKind::Button || kind == ControlKind::CheckBox ||
            kind == ControlKind::OptionButton) {
            EXPECT_NE(static_cast<CaptionedControl*>(control)->caption(), "") << control->name();
        }
    }
    form->Unload();
}

TEST_P(DialogLayout, LabelsAreLabels) {
    walk(body, [](const Layout& node, const auto&) {
        const bool labels = node.kind == Kind::Field || node.kind == Kind::Titled;
        if (node.kind != Kind::Field) {
            EXPECT_EQ(node.label != nullptr, labels);
        }
        if (!node.label) return;
        EXPECT_TRUE(labels);
        EXPECT_EQ(node.label->kind(), ControlKind::Label) << node.label->name();
    });
}

TEST_P(DialogLayout, NodesHoldControlsOfTheirKind) {
    walk(body, [](const Layout& node, const std::vector<const Layout*>& around) {
        switch (node.kind) {
            case Kind::Column:
            case Kind::Row:
            case Kind::Stretch:
                EXPECT_EQ(node.control, nullptr);
                break;
            case Kind::Buttons:
                EXPECT_EQ(node.control, nullptr);
                for (const Layout& child : node.children)
                    EXPECT_EQ(child.control->kind(), ControlKind::Button);
                break;
            case Kind::Group:
                ASSERT_NE(node.control, nullptr);
                EXPECT_EQ(node.control->kind(), ControlKind::Frame) << node.control->name();
                break;
            case Kind::Tabs:
                ASSERT_NE(node.control, nullptr);
                ASSERT_EQ(node.control->kind(), ControlKind::Tabs) << node.control->name();
                EXPECT_EQ(node.children.size(),
                          static_cast<std::size_t>(static_cast<Tabs*>(node.control)->count()));
                for (const Layout& child : node.children) EXPECT_EQ(child.kind, Kind::Pane);
                break;
            case Kind::Pane:
                ASSERT_NE(node.control, nullptr);
                EXPECT_EQ(node.control->kind(), ControlKind::Container) << node.control->name();
                ASSERT_FALSE(around.empty());
                EXPECT_EQ(around.back()->kind, Kind::Tabs);
                break;
            case Kind::Field:
            case Kind::Titled:
            case Kind::Single:
                EXPECT_NE(node.control, nullptr);
                break;
        }
    });
}

TEST_P(DialogLayout, OptionsStandInTheFrameThatBindsThem) {
    walk(body, [](const Layout& node, const std::vector<const Layout*>& around) {
        if (!node.control || node.control->kind() != ControlKind::OptionButton) return;
        const Control* innermost = nullptr;
        for (const Layout* each : around)
            if (each->kind == Kind::Group) innermost = each->control;
        EXPECT_EQ(static_cast<OptionButton*>(node.control)->frame(), innermost)
            << node.control->name();
    });
}

TEST_P(DialogLayout, NamesNoControlTwice) {
    std::set<std::string_view> names;
    for (const Control* control : form->controls())
        EXPECT_TRUE(names.insert(control->name()).second) << control->name();
    EXPECT_EQ(form->name(), GetParam().name);
}

TEST(SessionDialogLayout, ShowsTheControlsOfTheTabOnTopAlone) {
    frmMORAMConfig form;
    const Layout& body = form.layout().body;
    for (const int tab : {0, 1, 0}) {
        form.SSTab2.setTab(tab);
        EXPECT_EQ(isSeen(body, form.txtDisplayName), tab == 0);
        EXPECT_EQ(isSeen(body, form.lblDisplayName), tab == 0);
        EXPECT_EQ(isSeen(body, form.rdoTop), tab == 0);
        EXPECT_EQ(isSeen(body, form.formatTab.btnNew), tab == 1);
        EXPECT_TRUE(isSeen(body, form.btnOK));
        EXPECT_TRUE(isSeen(body, form.SSTab2));
    }
    form.frmLaunch.setVisible(false);
    EXPECT_FALSE(isSeen(body, form.txtProgramPath));
    EXPECT_TRUE(isSeen(body, form.txtDisplayName));
    form.SSTab2.setVisible(false);
    EXPECT_FALSE(isSeen(body, form.txtDisplayName));
    form.Unload();
}

TEST(AllDialogs, AreUnderTheseTests) {
    std::set<std::string> declared;
    const std::filesystem::path folder = WYNCONFIG_SOURCE "/src/dialogs";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".h") continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        if (std::regex_search(text.str(), std::regex(" : public (Helped)?Form \\{")))
            declared.insert(entry.path().stem().string());
    }
    std::set<std::string> tested;
    for (const Dialog& dialog : allDialogs()) tested.insert(dialog.name);
    EXPECT_EQ(tested, declared);
}

}  // namespace
}  // namespace wynconfig
