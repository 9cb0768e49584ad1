// How help comes up in windows: over a field, by Shift and F1, and beside the dialog.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QToolTip>
#include <QTreeView>
#include <memory>
#include <set>
#include <string>

#include "support/clear_window.h"
#include "support/desk.h"
#include "support/languages.h"
#include "support/qt_windows.h"

namespace wynconfig {
namespace {

class HelpInWindows : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        component.InitResourceManager(english);
        putFormat("CSV");
        putFullSession("DESK", {"CSV"});
    }
    void TearDown() override {
        QToolTip::hideText();
        Desk::TearDown();
    }

    void configure(const User::Script& look) {
        announceConfiguring([&](User& u) {
            look(u);
            u.click("btnCancel");
        });
        std::string name = "DESK";
        component.showMORAMConfigDlg(name);
        user().finish();
    }
    template <class W>
    static W* widget(const char* name) {
        return window()->findChild<W*>(QString::fromLatin1(name));
    }
    /// What a mouse that rests on the middle of a widget brings up.
    static std::string tipOver(QWidget& widget) {
        QToolTip::hideText();
        const QPoint at = widget.rect().center();
        QHelpEvent event(QEvent::ToolTip, at, widget.mapToGlobal(at));
        QApplication::sendEvent(&widget, &event);
        return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString();
    }
    static void pressF1(const char* where, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_F1, modifiers);
            QApplication::sendEvent(widget<QWidget>(where), &event);
        }
    }
    /// The popup of "What's this?"; null when there is none.
    static QWidget* whatsThis() {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            if (each->inherits("QWhatsThat") && each->isVisible()) return each;
        }
        return nullptr;
    }

    std::shared_ptr<ResourceManager> english = textsIn("en");
};
INSTANTIATE_TEST_SUITE_P(Views, HelpInWindows, ::testing::Values("Qt"));

TEST_P(HelpInWindows, ComesUpUnderTheMouse) {
    configure([&](User& u) {
        EXPECT_EQ(tipOver(*widget<QWidget>("txtProgramPath")),
                  english->FindString("HELP_PROGRAM_PATH"));
        EXPECT_EQ(tipOver(*widget<QWidget>("chkReverseList")),
                  english->FindString("HELP_REVERSE_LIST"));
        u.changeTab("SSTab2", 1);
        auto* list = widget<QTreeView>("lstAvailableFormats");
        EXPECT_EQ(tipOver(*list->viewport()), english->FindString("HELP_AVAILABLE_FORMATS"));
    });
}

TEST_P(HelpInWindows, ComesUpOverAChoiceThatIsReadWhole) {
    user().onForm("frmTallyvaneConfig", [&](User& u) {
        EXPECT_EQ(tipOver(*widget<QWidget>("cboPartFormat")),
                  english->FindString("HELP_FILE_FORMAT"));
        u.click("btnCancel");
    });
    configure([](User& u) { u.click("btnTallyvane"); });
}

TEST_P(HelpInWindows, GivesWayToARowThatHasNoRoom) {
    const std::string row = std::string(200, 'W');
    putFormat(row);
    configure([&](User& u) {
        u.changeTab("SSTab2", 1);
        auto* list = widget<QTreeView>("lstAvailableFormats");
        const QModelIndexList found =
            list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, "WWW", 1);
        ASSERT_EQ(found.size(), 1);
        const QPoint at = list->visualRect(found.front()).center();
        QHelpEvent event(QEvent::ToolTip, at, list->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list->viewport(), &event);
        EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString(),
                  row);
    });
}

TEST_P(HelpInWindows, LeavesAnArrowTheTipThatNamesIt) {
    configure([&](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.help("btnAdd"), english->FindString("HELP_SELECT_FORMAT"));
        EXPECT_EQ(tipOver(*widget<QWidget>("btnAdd")),
                  "Available Part Formats → Selected Part Formats");
    });
}

TEST_P(HelpInWindows, OfTheFieldWithTheFocusComesByShiftAndF1) {
    configure([](User& u) {
        u.focus("txtCommandLineArgs");
        EXPECT_EQ(whatsThis(), nullptr);
        pressF1("txtCommandLineArgs", Qt::ShiftModifier);
        QWidget* shown = whatsThis();
        ASSERT_NE(shown, nullptr);
        shown->close();
        EXPECT_EQ(window()->findChild<QWidget*>("help"), nullptr);
    });
}

TEST_P(HelpInWindows, OfTheDialogStandsBesideItAndClosesWithIt) {
    QPointer<QWidget> help;
    configure([&](User& u) {
        pressF1("txtDisplayName");
        help = window()->findChild<QWidget*>("help");
        ASSERT_TRUE(help);
        EXPECT_TRUE(help->isVisible());
        EXPECT_FALSE(help->isModal());
        EXPECT_EQ(help->windowTitle().toStdString(),
                  "WYN 3rd Party Application Configuration – Help");
        const auto* text = help->findChild<QTextEdit*>();
        EXPECT_EQ(help->focusWidget(), text);
        EXPECT_TRUE(text->isReadOnly());
        EXPECT_EQ(QAccessible::queryAccessibleInterface(const_cast<QTextEdit*>(text))
                      ->text(QAccessible::Name),
                  help->windowTitle());
        // What it tells of can be done while it is read.
        u.type("txtDisplayName", "OTHER");
        EXPECT_EQ(u.see("txtDisplayName").text, "OTHER");
        EXPECT_TRUE(help->isVisible());
    });
    EXPECT_TRUE(help.isNull());
}

TEST_P(HelpInWindows, IsAsClearAsTheDialogsInTheDark) {
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(darkColours());
    configure([](User&) {
        pressF1("txtDisplayName");
        auto* help = window()->findChild<QWidget*>("help");
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(expectClear(*help), (std::set<std::string>{"QPushButton", "QTextEdit"}));
    });
    QApplication::setPalette(usual);
}

TEST_P(HelpInWindows, RunsFromRightToLeftWhereTheWindowDoes) {
    component.InitResourceManager(textsIn("ar"));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    configure([](User&) {
        pressF1("txtDisplayName");
        const auto* help = window()->findChild<QWidget*>("help");
        ASSERT_NE(help, nullptr);
        EXPECT_EQ(help->layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(help->findChild<QTextEdit*>()->toPlainText().contains(QStringLiteral("←")));
    });
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace
}  // namespace wynconfig
