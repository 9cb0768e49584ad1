// What a person with weak eyes needs to find in the sample host's window, in light colours as in
// dark ones: outlines, ticks, texts and marks, measured on the pixels.
#include <gtest/gtest.h>

#include <QDialog>
#include <QProxyStyle>
#include <QTableView>
#include <QTextBlock>

#include "support/clear_window.h"
#include "support/host_window.h"
#include "window/appearance.h"
#include "window/store_dialogs.h"

namespace host {
namespace {

/// The window in light colours, or in the dark ones of the host.
class HostContrast : public HostWindow, public testing::WithParamInterface<bool> {
  protected:
    void SetUp() override {
        if (GetParam()) darken();
        HostWindow::SetUp();
    }
    void TearDown() override { QApplication::setPalette(m_before); }

    void show(int page) const {
        pages().setCurrentIndex(page);
        QCoreApplication::processEvents();
    }

  private:
    const QPalette m_before = QApplication::palette();
};
INSTANTIATE_TEST_SUITE_P(Colours, HostContrast, testing::Bool(),
                         [](const auto& each) { return each.param ? "Dark" : "Light"; });

TEST_P(HostContrast, ShowsOutlinesAndTextsOfAllPages) {
    pick("35-0171-A", 2);
    for (int page = 0; page < PageCount; ++page) {
        SCOPED_TRACE(page);
        show(page);
        EXPECT_GE(wynconfig::expectClear(*window).size(), 4U);
    }
}

TEST_P(HostContrast, ShowsTheTicksOfTheTable) {
    auto& table = widget<QTableView>("catalogue");
    const QAbstractItemModel& parts = *table.model();
    for (int row = 1; row < 6; row += 2) {
        table.model()->setData(parts.index(row, CatalogueModel::PartNumber), Qt::Checked,
                               Qt::CheckStateRole);
    }
    const wynconfig::Picture picture(*window);
    for (int row = 0; row < 6; ++row) {
        SCOPED_TRACE(row);
        const QModelIndex part = parts.index(row, CatalogueModel::PartNumber);
        const QRect tick = wynconfig::tickOf(table, part);
        const auto edge = picture.edgeOf(*table.viewport(), tick);
        EXPECT_GE(edge.outside, wynconfig::kOutline);
        // Of a selected row the ground of the box stands out by itself.
        if (!table.selectionModel()->isSelected(part)) {
            EXPECT_GE(edge.inside, wynconfig::kOutline);
        }
        const double mark = picture.markContrast(*table.viewport(), tick.adjusted(4, 4, -4, -4));
        EXPECT_EQ(mark >= wynconfig::kOutline, row % 2 == 1) << mark;
    }
}

TEST_P(HostContrast, ShowsTheNamesOfControlCharacters) {
    choose("session", "WEB SHOP EXPORT");
    pick("35-0171-A", 2);
    show(SendPage);
    auto& list = widget<QPlainTextEdit>("fileList");
    QTextCursor cursor = list.document()->find(QStringLiteral("‹"));
    ASSERT_FALSE(cursor.isNull());
    const int closing =
        static_cast<int>(cursor.block().text().indexOf(u'›', cursor.positionInBlock()));
    QTextCursor behind(cursor.block());
    behind.setPosition(cursor.block().position() + closing + 1);
    cursor.setPosition(cursor.selectionStart());
    const QRect mark = list.cursorRect(cursor) | list.cursorRect(behind);
    ASSERT_TRUE(list.viewport()->rect().contains(mark));
    const wynconfig::Picture picture(*window);
    EXPECT_GE(picture.markContrast(*list.viewport(), mark.adjusted(2, 0, -2, 0)), wynconfig::kText);
}

TEST_P(HostContrast, ShowsWhatItsDialogsAsk) {
    bool looked = false;
    QTimer::singleShot(0, window.get(), [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_EQ(dialog->objectName(), kHostDialog);
        EXPECT_GE(wynconfig::expectClear(*dialog).size(), 2U);
        looked = true;
        static_cast<QDialog*>(dialog)->reject();
    });
    askForStore(window.get(), store.root);
    EXPECT_TRUE(looked);
}

/// A style that puts icons on the buttons of dialogs, as those of some desktops do.
class IconStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* of,
                  QStyleHintReturn* more) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, of, more);
    }
};

class HostButtons : public HostWindow {};

TEST_F(HostButtons, HaveNoIconsInAnyDialog) {
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new IconStyle);
    std::size_t looked = 0;
    const auto look = [&](const std::function<void()>& ask) {
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = static_cast<QDialog*>(QApplication::activeModalWidget());
            for (const QPushButton* each : dialog->findChildren<QPushButton*>()) {
                EXPECT_TRUE(each->icon().isNull()) << each->text().toStdString();
                ++looked;
            }
            dialog->reject();
        });
        ask();
    };
    look([&] { askForStore(window.get(), store.root); });
    look([&] { askForTakeOver(window.get()); });
    look([&] { askToRemove(window.get(), "COUNTER"); });
    look([&] { askToQuit(window.get()); });
    look([&] { window->findChild<QAction*>("about")->trigger(); });
    window->findChild<QAction*>("guide")->trigger();
    EXPECT_TRUE(window->findChild<QPushButton*>("close")->icon().isNull());
    QApplication::setStyle(usual);
    EXPECT_EQ(looked, 11U);
}

}  // namespace
}  // namespace host
