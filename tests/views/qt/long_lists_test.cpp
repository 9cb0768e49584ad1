// Lists and combo boxes of thousands of rows: how much of them is on the screen, and how a person
// finds a row.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <map>
#include <string>
#include <vector>

#include "support/dialog_walk.h"
#include "support/find_form.h"
#include "support/long_list_cases.h"

namespace wynconfig {

namespace {

void pressIn(QWidget& widget, Qt::Key key, const QString& text = {},
             Qt::KeyboardModifiers held = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, key, held, text);
    QApplication::sendEvent(&widget, &down);
}

}  // namespace

namespace longlists {

QLineEdit& lineOf(const ListView& list) {
    const std::string name = std::string(list.name()) + "Filter";
    return *window()->findChild<QLineEdit*>(QString::fromStdString(name));
}

bool isLineSeen(const ListView& list) {
    return lineOf(list).isVisible();
}

std::string lineText(const ListView& list) {
    return lineOf(list).text().toStdString();
}

void clearLine(const ListView& list) {
    lineOf(list).clear();
}

bool isInLine(const ListView& list) {
    return window()->focusWidget() == &lineOf(list);
}

bool isInRows(const ListView& list) {
    return window()->focusWidget() == widgetOf(list);
}

std::string noteOn(const ListView& list) {
    return widgetOf(list)->accessibleDescription().toStdString();
}

void press(Key key) {
    static const std::map<Key, Qt::Key> keys{
        {Key::Up, Qt::Key_Up},         {Key::Down, Qt::Key_Down}, {Key::Home, Qt::Key_Home},
        {Key::Delete, Qt::Key_Delete}, {Key::F2, Qt::Key_F2},     {Key::Enter, Qt::Key_Return}};
    pressIn(*window()->focusWidget(), keys.at(key),
            key == Key::Enter ? QStringLiteral("\r") : QString());
}

void pressCtrlF() {
    pressIn(*window()->focusWidget(), Qt::Key_F, QStringLiteral("\x06"), Qt::ControlModifier);
}

void type(const std::string& letters) {
    for (const QChar letter : QString::fromStdString(letters))
        pressIn(*window()->focusWidget(), Qt::Key_unknown, letter);
}

INSTANTIATE_TEST_SUITE_P(Views, LongLists, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace longlists

namespace {

/// A form with a combo box and a list of numbered rows.
class LongForm : public TestForm {
  public:
    LongForm() : TestForm("frmLong") {
        btnOK.Click = [this] { Unload(); };
    }

    int rows = 10000;
    Label lblChoice{*this, "lblChoice", "Choice"};
    ComboBox cboChoice{*this, "cboChoice"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        for (int i = 1; i <= rows; ++i) cboChoice.addItem(rowName(i));
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblChoice, cboChoice), buttons({&btnOK})}), &btnOK, &btnOK};
    }
};

class LongChoices : public TestFormDesk<LongForm> {
  protected:
    QComboBox& box() { return *static_cast<QComboBox*>(widgetOf(form.cboChoice)); }
    /// How many items the open list shows whole.
    int itemsInSight() {
        const QListView& list = *qobject_cast<QListView*>(box().view());
        const int height = list.viewport()->height();
        int count = 0;
        for (int i = 0; i < box().count(); ++i) {
            const QRect item = list.visualRect(list.model()->index(i, 0));
            if (item.top() >= 0 && item.bottom() < height) ++count;
        }
        return count;
    }
};
INSTANTIATE_TEST_SUITE_P(Views, LongChoices, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(LongChoices, ShowFifteenItemsAtATime) {
    show([&](User&) {
        box().showPopup();
        EXPECT_EQ(itemsInSight(), 15);
        EXPECT_TRUE(box().view()->verticalScrollBar()->isVisible());
        box().hidePopup();
    });
}

TEST_P(LongChoices, ShowFewItemsWhole) {
    form.rows = 4;
    show([&](User&) {
        box().showPopup();
        EXPECT_EQ(itemsInSight(), 4);
        EXPECT_FALSE(box().view()->verticalScrollBar()->isVisible());
        box().hidePopup();
    });
}

TEST_P(LongChoices, AreFoundByLettersInTheOpenListToo) {
    show([&](User& u) {
        box().showPopup();
        for (const QChar letter : QStringLiteral("row 77"))
            pressIn(*box().view(), Qt::Key_unknown, letter);
        EXPECT_EQ(u.see("cboChoice").text, "") << "nothing is chosen yet";
        pressIn(*box().view(), Qt::Key_Return, QStringLiteral("\r"));
        EXPECT_EQ(form.cboChoice.text(), "ROW 77");
    });
}

class LongListWindows : public TestFormDesk<FindForm> {
  protected:
    QLineEdit& filter() { return longlists::lineOf(form.lstAll); }
    QWidget& list() { return *widgetOf(form.lstAll); }
};
INSTANTIATE_TEST_SUITE_P(Views, LongListWindows, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(LongListWindows, HaveRoomForTheLine) {
    form.rows = 20;
    show([&](User& u) {
        const QSize before = window()->size();
        form.fill(21);
        u.see("lstAll");
        EXPECT_LT(filter().geometry().bottom(), list().geometry().top());
        EXPECT_EQ(window()->size(), before);
    });
}

TEST_P(LongListWindows, AreLeftBackwardsFromTheLine) {
    show([&](User& u) {
        longlists::pressCtrlF();
        pressIn(*window()->focusWidget(), Qt::Key_Backtab, {}, Qt::ShiftModifier);
        EXPECT_TRUE(u.see("btnDelete").focus);
    });
}

TEST_P(LongListWindows, NameTheirLine) {
    show([&](User&) {
        EXPECT_EQ(filter().placeholderText(), "Filter (Ctrl+F)");
        EXPECT_EQ(filter().accessibleName(), "Filter: All rows");
    });
}

TEST_P(LongListWindows, ShowTheWordsOfAnEmptyList) {
    form.rows = 0;
    show([&](User& u) {
        const QImage empty = list().parentWidget()->grab(list().geometry()).toImage();
        form.fill(1);
        form.lstAll.setRowText(1, " ");
        u.see("lstAll");
        EXPECT_NE(list().parentWidget()->grab(list().geometry()).toImage(), empty);
    });
}

TEST_P(LongListWindows, SayThatTheyAreEmptyWhereTheyAreHidden) {
    form.rows = 0;
    show([&](User& u) {
        form.lstAll.setVisible(false);
        EXPECT_FALSE(u.see("lstAll").visible);
        const QWidget* note = nullptr;
        for (const QWidget* each : window()->findChildren<QWidget*>()) {
            if (each->accessibleName().startsWith("Nothing here yet. Begin")) note = each;
        }
        ASSERT_TRUE(note);
        EXPECT_TRUE(note->isVisible());
        EXPECT_EQ(note->geometry(), list().geometry());
    });
}

/// The dialogs on a store in which nothing is yet.
class EmptyStore : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    }
    static QString noteOf(const char* list) {
        return window()->findChild<QWidget*>(QString::fromLatin1(list))->accessibleDescription();
    }
};
INSTANTIATE_TEST_SUITE_P(Views, EmptyStore, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(EmptyStore, SaysInEachDialogWhatBringsTheFirstRow) {
    user().onForm("frmMORAMConfig", [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(noteOf("lstAvailableFormats"), "Nothing here yet. Begin with “New”.");
        EXPECT_EQ(noteOf("lstSelectedFormats2"),
                  "Nothing here yet. Select a row under “Available Part Formats”, then press “>”.");
        u.closeByFrame();
    });
    user().onForm("frmMORAMMaintenance", [](User& u) {
        EXPECT_EQ(noteOf("lstAvailableMORAMs2"), "Nothing here yet. Begin with “New”.");
        u.closeByFrame();
    });
    std::string name = "NEW";
    component.showMORAMConfigDlg(name);
    component.showMORAMMaintenanceDlg(name);
    user().finish();
}

TEST_P(EmptyStore, SpeaksOfAButtonWhereThereIsOne) {
    user().onForm("frmSessionManager", [](User& u) {
        EXPECT_EQ(noteOf("lstAvailableTESessions"), "Nothing here yet. Begin with “Add”.");
        u.closeByFrame();
    });
    component.showConfigurableSessionManagerDlg("");
    user().onForm("frmSessionManager", [](User& u) {
        EXPECT_EQ(noteOf("lstAvailableTESessions"), "Nothing here yet.");
        u.closeByFrame();
    });
    component.showSessionManagerDlg("");
    user().finish();
}

TEST_P(EmptyStore, IsNoMoreOnceThereIsAFormat) {
    user().onForm("frmMORAMConfig", [&](User& u) {
        u.changeTab("SSTab2", 1);
        putFormat("CSV");
        u.onForm("frmPartNumberFormat", [](User& editor) {
            EXPECT_EQ(noteOf("lstSpecialSymbols2"), "");
            editor.click("btnCancel");
        });
        u.click("btnNew");
        EXPECT_TRUE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(noteOf("lstAvailableFormats"), "");
        u.closeByFrame();
    });
    std::string name = "NEW";
    component.showMORAMConfigDlg(name);
    user().finish();
}

}  // namespace
}  // namespace wynconfig
