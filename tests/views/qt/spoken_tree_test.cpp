// What a screen reader finds in the dialogs, as a whole and as text, and what it is told by itself.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "support/access_events.h"
#include "support/dialog_walk.h"
#include "support/spoken_tree.h"
#include "wynconfig/qt_view.h"

namespace wynconfig {
namespace {

using Faults = std::vector<std::string>;

class Spoken : public DialogWalk {
  protected:
    /// Looks at each dialog, on each of its tabs.
    void showEachTab(const std::function<void(Form&)>& look) {
        showEach([&](User& u, Form& form) {
            u.formTitle();
            look(form);
            if (!form.control("SSTab2")) return;
            u.changeTab("SSTab2", 1);
            u.formTitle();
            look(form);
        });
    }
};
INSTANTIATE_TEST_SUITE_P(Views, Spoken, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Spoken, EveryDialogHasNamesForAllThatAPersonWorksWith) {
    int focusable = 0;
    showEachTab([&](Form&) {
        const SpokenTree tree(*window());
        EXPECT_EQ(tree.faults(), Faults{}) << spokenTree(*window());
        focusable += tree.focusable();
    });
    EXPECT_GT(focusable, 80);
}

TEST_P(Spoken, ADialogWithLongListsAndEmptyOnesDoesToo) {
    for (int i = 0; i < 30; ++i) putFormat("FORMAT " + std::to_string(i));
    frmMORAMConfig form;
    form.init("");
    user().onForm("frmMORAMConfig", [&](User& u) {
        u.changeTab("SSTab2", 1);
        u.formTitle();
        EXPECT_EQ(SpokenTree(*window()).faults(), Faults{}) << spokenTree(*window());
        u.closeByFrame();
    });
    form.Show();
    user().finish();
}

/// A window with one fault of each kind.
class FaultyWindow : public QWidget {
  public:
    FaultyWindow() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(new QLineEdit);
        for (int i = 0; i < 2; ++i) layout->addWidget(new QPushButton("Browse"));
        auto* table = new QTableView;
        table->setModel(&m_rows);
        table->setAccessibleName("Rows");
        table->hideColumn(1);
        layout->addWidget(table);
    }

  private:
    QStandardItemModel m_rows{1, 2};
};

TEST_P(Spoken, FaultsAreFound) {
    FaultyWindow window;
    window.show();
    const Faults faults = SpokenTree(window).faults();
    const auto found = [&](const std::string& beginning, const std::string& end) {
        return std::any_of(faults.begin(), faults.end(), [&](const std::string& each) {
            return each.starts_with(beginning) && each.ends_with(end);
        });
    };
    EXPECT_TRUE(found("nameless:", " / EditableText \"\""));
    EXPECT_TRUE(found("two alike:", " / Button \"Browse\""));
    EXPECT_TRUE(found("of a hidden column:", " / Cell \"\""));
}

TEST_P(Spoken, IsListedWithRolesNamesLabelsContentsAndStates) {
    frmTallyvaneConfig form;
    const auto session = sessionRecord("DESK");
    form.init(session, "DESK");
    user().onForm("frmTallyvaneConfig", [&](User& u) {
        u.type("txtFileName", "parts.txt");
        u.focus("rdoAppend");
        const std::string tree = spokenTree(*window());
        EXPECT_TRUE(tree.starts_with("Dialog \"Configure Tallyvane Session\"")) << tree;
        for (const std::string line :
             {"\n    StaticText \"File Name\"",
              "\n    EditableText \"File Name\" = \"parts.txt\" labelled by \"File Name\"",
              "\n    Grouping \"If the file exists\"\n      RadioButton \"Append\"",
              "\n      RadioButton \"Overwrite\""})
            EXPECT_NE(tree.find(line), std::string::npos) << line << "\n" << tree;
        u.closeByFrame();
    });
    form.Show();
    user().finish();
}

TEST_P(Spoken, AFieldThatWasRefusedSaysWhy) {
    component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    frmMORAMConfig session;
    session.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        u.type("txtDisplayName", "");
        u.onBox(answer::Ok);
        const AccessEvents events;
        u.click("btnApply");
        u.formTitle();
        QWidget& box = *widgetOf(session.txtDisplayName);
        EXPECT_EQ(box.accessibleDescription().toStdString(),
                  "Enter a display name for the session.");
        EXPECT_TRUE(events.has(QAccessible::DescriptionChanged,
                               "Display Name: Enter a display name for the session."));
        u.type("txtDisplayName", "DESK");
        u.formTitle();
        EXPECT_FALSE(box.accessibleDescription().startsWith("Enter"));
        u.closeByFrame();
    });
    session.Show();
    user().finish();
}

}  // namespace
}  // namespace wynconfig
