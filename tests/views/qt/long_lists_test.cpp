// Lists and combo boxes of thousands of rows: how much of them is on the screen, and how a person
// finds a row.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <string>
#include <vector>

#include "support/dialog_walk.h"
#include "support/find_form.h"

namespace wynconfig {
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

void pressIn(QWidget& widget, Qt::Key key, const QString& text = {},
             Qt::KeyboardModifiers held = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, key, held, text);
    QApplication::sendEvent(&widget, &down);
}

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

class LongLists : public TestFormDesk<FindForm> {
  protected:
    static QLineEdit& filterOf(const ListView& list) {
        const std::string name = std::string(list.name()) + "Filter";
        return *window()->findChild<QLineEdit*>(QString::fromStdString(name));
    }
    QLineEdit& filter() { return filterOf(form.lstAll); }
    QWidget& list() { return *widgetOf(form.lstAll); }
    static QWidget& inFocus() { return *window()->focusWidget(); }
    static void find() {
        pressIn(inFocus(), Qt::Key_F, QStringLiteral("\x06"), Qt::ControlModifier);
    }
    void typeFilter(const QString& text) {
        find();
        ASSERT_EQ(&inFocus(), &filter());
        for (const QChar letter : text) pressIn(inFocus(), Qt::Key_unknown, letter);
    }
    static Log seen(User& u) { return u.see("lstAll").rowTexts(); }
    static QString noteOf(const ListView& list) { return widgetOf(list)->accessibleDescription(); }
};
INSTANTIATE_TEST_SUITE_P(Views, LongLists, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(LongLists, HaveALineAboveThemWhereTheyHaveMoreThanTwentyRows) {
    form.rows = 20;
    show([&](User& u) {
        EXPECT_FALSE(filter().isVisible());
        const QSize before = window()->size();
        form.fill(21);
        u.see("lstAll");
        EXPECT_TRUE(filter().isVisible());
        EXPECT_LT(filter().geometry().bottom(), list().geometry().top());
        EXPECT_EQ(window()->size(), before);
        EXPECT_FALSE(filterOf(form.lstTokens).isVisible());
        form.lstAll.setVisible(false);
        u.see("lstAll");
        EXPECT_FALSE(filter().isVisible());
    });
}

TEST_P(LongLists, ShowTheRowsThatContainWhatIsTyped) {
    show([&](User& u) {
        typeFilter("w 19");
        EXPECT_EQ(seen(u), (Log{"ROW 19", "ROW 190", "ROW 191", "ROW 192", "ROW 193", "ROW 194",
                                "ROW 195", "ROW 196", "ROW 197", "ROW 198", "ROW 199"}));
        EXPECT_EQ(form.lstAll.count(), 200U);
        EXPECT_EQ(form.log, Log{});
        typeFilter("99");
        EXPECT_EQ(seen(u), (Log{"ROW 99", "ROW 199"})) << "the text before was selected";
        filter().clear();
        EXPECT_EQ(seen(u).size(), 200U);
    });
}

TEST_P(LongLists, KeepTheSelectedRowInSight) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        typeFilter("199");
        EXPECT_EQ(seen(u), (Log{"ROW 7", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        EXPECT_EQ(form.lstAll.selectedNumber(), 7U);
        filter().clear();
        EXPECT_EQ(u.see("lstAll").selected, 7U);
        EXPECT_EQ(form.log, Log{}) << "nothing was picked";
    });
}

TEST_P(LongLists, ShowARowThatCodeSelects) {
    show([&](User& u) {
        typeFilter("199");
        form.lstAll.select("ROW 5");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        form.lstAll.add("ROW 1999", "ROW 1999");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199", "ROW 1999"})) << "what is typed holds on";
        EXPECT_EQ(form.log, Log{});
    });
}

TEST_P(LongLists, PickAmongTheRowsThatAreShown) {
    show([&](User& u) {
        typeFilter("99");
        u.pick("lstAll", "ROW 199");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        EXPECT_EQ(form.log, Log{"ROW 199"});
        pressIn(inFocus(), Qt::Key_Up);
        EXPECT_EQ(form.lstAll.selectedNumber(), 99U);
        EXPECT_THROW(u.pick("lstAll", "ROW 5"), UserError) << "it is not seen";
        u.typeAhead("lstAll", "row 1");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        u.pressDelete();
        EXPECT_EQ(form.log.back(), "btnDelete");
    });
}

TEST_P(LongLists, AreEnteredByTheDownKeyAtTheFirstRowThatIsFound) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        typeFilter("199");
        pressIn(inFocus(), Qt::Key_Down);
        EXPECT_TRUE(u.see("lstAll").focus);
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        form.log.clear();
        find();
        pressIn(inFocus(), Qt::Key_Return, QStringLiteral("\r"));
        EXPECT_TRUE(u.see("lstAll").focus);
        EXPECT_EQ(form.log, Log{}) << "the row that is found is selected already";
        EXPECT_TRUE(form.loaded());
    });
}

TEST_P(LongLists, AreLeftUpwardsFromTheFirstRow) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 2");
        pressIn(inFocus(), Qt::Key_Up);
        EXPECT_EQ(&inFocus(), &list());
        pressIn(inFocus(), Qt::Key_Up);
        EXPECT_EQ(&inFocus(), &filter());
    });
}

TEST_P(LongLists, LetEscapeClearTheLineBeforeItCancels) {
    show([&](User& u) {
        typeFilter("199");
        u.pressEscape();
        EXPECT_TRUE(form.loaded());
        EXPECT_EQ(seen(u).size(), 200U);
        EXPECT_EQ(&inFocus(), &filter());
        u.pressEscape();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_TRUE(form.cancelled);
}

TEST_P(LongLists, KeepTheirKeysOutOfTheLine) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        typeFilter("199");
        pressIn(inFocus(), Qt::Key_Home);
        pressIn(inFocus(), Qt::Key_Delete);
        EXPECT_EQ(filter().text(), "99");
        pressIn(inFocus(), Qt::Key_F2);
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(form.focused(), &form.lstAll) << "the line is a part of the list";
    });
}

TEST_P(LongLists, KeepTheTabKeyAsItIs) {
    show([&](User& u) {
        u.focus("txtName");
        for (const char* next : {"btnNew", "btnDelete", "lstAll", "btnAdd"}) {
            u.pressTab();
            EXPECT_TRUE(u.see(next).focus) << next;
        }
        find();
        u.pressTab();
        EXPECT_TRUE(u.see("btnAdd").focus);
        find();
        pressIn(inFocus(), Qt::Key_Backtab, {}, Qt::ShiftModifier);
        EXPECT_TRUE(u.see("btnDelete").focus);
    });
}

TEST_P(LongLists, KeepTheirLineForARowThatCodeGoesTo) {
    show([&](User& u) {
        typeFilter("199");
        form.lstAll.setFocus();
        u.see("lstAll");
        EXPECT_EQ(filter().text(), "199");
        form.fill(3);
        u.see("lstAll");
        EXPECT_FALSE(filter().isVisible());
        EXPECT_TRUE(u.see("lstAll").focus) << "the line went, and the list is what it was for";
        EXPECT_EQ(seen(u).size(), 3U);
        form.fill(30);
        EXPECT_EQ(seen(u).size(), 30U) << "the line comes up empty";
    });
}

TEST_P(LongLists, NameTheirLine) {
    show([&](User&) {
        EXPECT_EQ(filter().placeholderText(), "Filter (Ctrl+F)");
        EXPECT_EQ(filter().accessibleName(), "Filter: All rows");
    });
}

TEST_P(LongLists, SayWhenNothingIsFound) {
    show([&](User& u) {
        EXPECT_EQ(noteOf(form.lstAll), "");
        typeFilter("x");
        EXPECT_EQ(noteOf(form.lstAll), "Nothing contains this text.");
        u.pressEscape();
        EXPECT_EQ(noteOf(form.lstAll), "");
    });
}

TEST_P(LongLists, SayThatTheyAreEmptyAndWhatComesNext) {
    form.rows = 0;
    show([&](User& u) {
        EXPECT_EQ(noteOf(form.lstAll), "Nothing here yet. Begin with “New”.");
        EXPECT_EQ(noteOf(form.lstChosen),
                  "Nothing here yet. Select a row under “All rows”, then press “>”.");
        EXPECT_EQ(noteOf(form.lstTokens), "");
        form.btnNew.setVisible(false);
        u.see("lstAll");
        EXPECT_EQ(noteOf(form.lstAll), "Nothing here yet.");
        const QImage empty = list().parentWidget()->grab(list().geometry()).toImage();
        form.fill(1);
        u.see("lstAll");
        EXPECT_EQ(noteOf(form.lstAll), "");
        form.lstAll.setRowText(1, " ");
        u.see("lstAll");
        EXPECT_NE(list().parentWidget()->grab(list().geometry()).toImage(), empty)
            << "the words are on the screen";
    });
}

TEST_P(LongLists, SayThatTheyAreEmptyWhereTheyAreHidden) {
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
