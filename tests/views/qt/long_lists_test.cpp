// Lists and combo boxes of thousands of rows: how much of them is on the screen, and how a person
// finds a row.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <string>
#include <vector>

#include "support/dialog_walk.h"
#include "support/test_form.h"
#include "views/qt/widgets.h"

namespace wynconfig {
namespace {

/// A form with a combo box and a list of numbered rows.
class LongForm : public TestForm {
  public:
    LongForm() : TestForm("frmLong") {
        btnOK.Click = [this] { Unload(); };
    }

    static std::string rowName(int number) { return "ROW " + std::to_string(number); }

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

}  // namespace
}  // namespace wynconfig
