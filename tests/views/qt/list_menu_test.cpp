// What can be done with the rows of a list beside the buttons that do it: by its menu, and by
// taking a row from one list to another.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QTest>
#include <QWindow>
#include <string>
#include <vector>

#include "dialogs/session/frmSessionManager.h"
#include "support/part_format_desk.h"
#include "support/qt_windows.h"
#include "support/session_dialog_desk.h"
#include "views/qt/widgets.h"

namespace wynconfig {
namespace {

using desktop::RowList;
using Texts = std::vector<std::string>;

RowList& rowListOf(const char* name) {
    return *static_cast<RowList*>(window()->findChild<QWidget*>(name));
}

QPoint rowMiddle(RowList& list, int row) {
    return list.visualRect(list.model()->index(row, 0)).center();
}

/// Clicks with the right button, as the window system tells of it.
void rightClick(RowList& list, int row) {
    QWidget& view = *list.viewport();
    QTest::mouseClick(view.window()->windowHandle(), Qt::RightButton, Qt::NoModifier,
                      view.mapTo(view.window(), rowMiddle(list, row)));
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The entries, each with the key that it names and "off" where it can't be chosen.
Texts menuEntries() {
    Texts all;
    for (const QAction* each : openMenu()->actions())
        all.push_back(each->text().toStdString() + (each->isEnabled() ? "" : " off"));
    return all;
}

/// Goes down to an entry of the menu, and chooses it.
void chooseEntry(const QString& text) {
    QMenu& shown = *openMenu();
    while (!shown.activeAction() || !shown.activeAction()->text().startsWith(text))
        QTest::keyClick(&shown, Qt::Key_Down);
    QTest::keyClick(&shown, Qt::Key_Return);
    QCoreApplication::processEvents();
}

class ListMenus : public FullSessionDesk {
  protected:
    void SetUp() override {
        FullSessionDesk::SetUp();
        putFormat("TAB");
        putFormat("ZIP");
    }
    /// Opens the session on the tab with the lists.
    void openLists(const User::Script& look) {
        open("DESK", [&](User& u) {
            u.changeTab("SSTab2", 1);
            u.formTitle();
            look(u);
        });
    }
    Texts selectedFormats(User& u) { return u.see("lstSelectedFormats2").rowTexts(); }
};
INSTANTIATE_TEST_SUITE_P(Views, ListMenus, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(ListMenus, HaveWhatTheButtonsOfTheListDo) {
    openLists([&](User& u) {
        rightClick(rowListOf("lstAvailableFormats"), 1);
        ASSERT_NE(openMenu(), nullptr);
        EXPECT_EQ(u.see("lstAvailableFormats").selected, 2U);
        EXPECT_TRUE(u.see("lstAvailableFormats").focus);
        const char* const select =
            "{MORAM_CONFIG_LBL_AVAILABLEFORMATS} → "
            "{MORAM_CONFIG_LBL_SELECTEDFORMATS}\tReturn";
        EXPECT_EQ(menuEntries(), (Texts{"{BUTTON_NEW}", "{BUTTON_COPY}", "{BUTTON_RENAME}\tF2",
                                        "{BUTTON_EDIT}", "{BUTTON_DELETE}\tDel", select}));
        openMenu()->close();
        rightClick(rowListOf("lstSelectedFormats2"), 0);
        EXPECT_EQ(menuEntries(), (Texts{"{MORAM_CONFIG_LBL_SELECTEDFORMATS} → "
                                        "{MORAM_CONFIG_LBL_AVAILABLEFORMATS}\tDel"}));
        openMenu()->close();
    });
}

TEST_P(ListMenus, FollowWhatCanBeSeenAndUsed) {
    openLists([&](User&) {
        dialog().formatTab.btnCopy.setEnabled(false);
        dialog().formatTab.btnNew.setVisible(false);
        rightClick(rowListOf("lstAvailableFormats"), 0);
        const Texts all = menuEntries();
        ASSERT_EQ(all.size(), 5U);
        EXPECT_EQ(all.front(), "{BUTTON_COPY} off");
        openMenu()->close();
    });
}

TEST_P(ListMenus, PressTheButtons) {
    openLists([&](User& u) {
        rightClick(rowListOf("lstAvailableFormats"), 2);
        chooseEntry("{MORAM_CONFIG_LBL_AVAILABLEFORMATS}");
        EXPECT_EQ(selectedFormats(u), (Texts{"CSV", "ZIP"}));
        rightClick(rowListOf("lstAvailableFormats"), 1);
        u.onBox(answer::Yes);
        chooseEntry("{BUTTON_DELETE}");
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(), (Texts{"CSV", "ZIP"}));
        EXPECT_EQ(openMenu(), nullptr);
    });
}

TEST_P(ListMenus, ComeByTheKeyboard) {
    openLists([&](User& u) {
        u.pick("lstAvailableFormats", "TAB");
        RowList& list = rowListOf("lstAvailableFormats");
        for (const auto& [key, held] :
             {std::pair(Qt::Key_F10, Qt::ShiftModifier), std::pair(Qt::Key_Menu, Qt::NoModifier)}) {
            QTest::keyClick(&list, key, held);
            ASSERT_NE(openMenu(), nullptr) << key;
            const QRect row = list.visualRect(list.model()->index(1, 0));
            const int top = list.viewport()->mapFromGlobal(openMenu()->pos()).y();
            EXPECT_NEAR(top, row.bottom(), 2) << "below the row that it is about";
            openMenu()->close();
        }
        QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
        QTest::keyClick(openMenu(), Qt::Key_Escape);
        EXPECT_EQ(openMenu(), nullptr);
        EXPECT_TRUE(u.see("lstAvailableFormats").focus);
    });
}

TEST_P(ListMenus, AreNotThereWithoutButtons) {
    frmSessionManager form;
    form.init(false, "DESK");
    user().onForm("frmSessionManager", [&](User& u) {
        u.formTitle();
        rightClick(rowListOf("lstAvailableTESessions"), 0);
        EXPECT_EQ(openMenu(), nullptr);
        u.closeByFrame();
    });
    form.Show();
}

class TokenMenu : public PartFormatDesk {};
INSTANTIATE_TEST_SUITE_P(Views, TokenMenu, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(TokenMenu, TheRightButtonWritesNoToken) {
    edit("", [](User& u) {
        u.formTitle();
        rightClick(rowListOf("lstSpecialSymbols2"), 5);
        EXPECT_EQ(openMenu(), nullptr);
        EXPECT_EQ(u.see("txtHeader").text, "");
        u.click("btnCancel");
    });
}

TEST_P(ListMenus, KeysGoOnWhereARowWasRemoved) {
    putFullSession("DESK", {"CSV", "TAB", "ZIP"});
    openLists([&](User& u) {
        u.pick("lstSelectedFormats2", "TAB");
        u.pressDelete();
        EXPECT_EQ(u.see("lstSelectedFormats2").selected, 0U) << "none is selected by itself";
        u.formTitle();
        EXPECT_EQ(rowListOf("lstSelectedFormats2").marked(), 2U);
        QTest::keyClick(&rowListOf("lstSelectedFormats2"), Qt::Key_Down);
        EXPECT_EQ(u.see("lstSelectedFormats2").selected, 2U);
        u.pressDelete();
        EXPECT_EQ(selectedFormats(u), Texts{"CSV"});
        u.formTitle();
        EXPECT_EQ(rowListOf("lstSelectedFormats2").marked(), 1U);
    });
}

/// Puts the row of one list down on another one. False: that does not take it.
bool dropOn(const RowList& from, RowList& onto) {
    const desktop::TakenRow row(from);
    QWidget& view = *onto.viewport();
    const QPoint at = view.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &row, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(at, Qt::CopyAction, &row, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &drop);
    QCoreApplication::processEvents();
    return drop.isAccepted();
}

class RowDrags : public ListMenus {};
INSTANTIATE_TEST_SUITE_P(Views, RowDrags, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(RowDrags, DoWhatTheButtonBetweenTheListsDoes) {
    openLists([&](User& u) {
        u.pick("lstAvailableFormats", "ZIP");
        EXPECT_TRUE(dropOn(rowListOf("lstAvailableFormats"), rowListOf("lstSelectedFormats2")));
        EXPECT_EQ(selectedFormats(u), (Texts{"CSV", "ZIP"}));
        EXPECT_TRUE(dropOn(rowListOf("lstAvailableFormats"), rowListOf("lstSelectedFormats2")));
        EXPECT_EQ(selectedFormats(u), (Texts{"CSV", "ZIP"})) << "the button refuses it";
        u.pick("lstSelectedFormats2", "CSV");
        EXPECT_TRUE(dropOn(rowListOf("lstSelectedFormats2"), rowListOf("lstAvailableFormats")));
        EXPECT_EQ(selectedFormats(u), Texts{"ZIP"});
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(), (Texts{"CSV", "TAB", "ZIP"}));
    });
}

TEST_P(RowDrags, AreRefusedWhereTheButtonIs) {
    openLists([&](User& u) {
        u.pick("lstAvailableFormats", "ZIP");
        EXPECT_FALSE(dropOn(rowListOf("lstAvailableFormats"), rowListOf("lstAvailableFormats")));
        dialog().formatTab.btnAdd.setEnabled(false);
        EXPECT_FALSE(dropOn(rowListOf("lstAvailableFormats"), rowListOf("lstSelectedFormats2")));
        EXPECT_EQ(selectedFormats(u), Texts{"CSV"});
    });
}

TEST_P(RowDrags, TakeTheRowUnderTheMouse) {
    openLists([&](User& u) {
        RowList& from = rowListOf("lstAvailableFormats");
        QWindow* handle = window()->windowHandle();
        const QPoint start = from.viewport()->mapTo(from.window(), rowMiddle(from, 2));
        // Without one that is taken along, nothing is picked before the button is let go.
        QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, start);
        QTest::mouseMove(handle, start + QPoint(5, 0));
        QTest::mouseMove(handle, start + QPoint(40, 0));
        EXPECT_EQ(u.see("lstAvailableFormats").selected, 3U);
        EXPECT_EQ(selectedFormats(u), Texts{"CSV"}) << "it was put down nowhere";
    });
}

}  // namespace
}  // namespace wynconfig
