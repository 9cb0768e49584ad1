// What a screen reader finds in the window, and is told of what happens there.
#include <QTableView>

#include "support/access_events.h"
#include "support/host_window.h"
#include "support/spoken_tree.h"
#include "wynconfig/qt_view.h"

namespace host {
namespace {

using Faults = std::vector<std::string>;

class HostSpoken : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    static QAccessibleInterface* cell(QTableView& table, int row, int column) {
        return QAccessible::queryAccessibleInterface(&table)->tableInterface()->cellAt(row, column);
    }
};

TEST_F(HostSpoken, EveryPageHasNamesForAllThatAPersonWorksWith) {
    pick("10-0120", 1);
    for (int page = 0; page < PageCount; ++page) {
        pages().setCurrentIndex(page);
        QCoreApplication::processEvents();
        const wynconfig::SpokenTree tree(*window);
        EXPECT_EQ(tree.faults(), Faults{}) << wynconfig::spokenTree(*window);
        EXPECT_GT(tree.focusable(), 10);
    }
    pages().setCurrentIndex(SessionsPage);
    pages().currentWidget()->findChild<QTabWidget*>()->setCurrentIndex(1);
    EXPECT_EQ(wynconfig::SpokenTree(*window).faults(), Faults{});
}

TEST_F(HostSpoken, TablesTellNoMoreThanIsSeen) {
    for (const char* name : {"catalogue", "partsList"}) {
        pick("10-0120", 1);
        auto& table = widget<QTableView>(name);
        EXPECT_EQ(table.model()->columnCount(), 5) << "the group is not there";
        EXPECT_EQ(table.model()->headerData(0, Qt::Vertical).toString(), "");
        const auto headers = cell(table, 0, 0)->tableCellInterface()->rowHeaderCells();
        for (QAccessibleInterface* each : headers) {
            EXPECT_EQ(each->text(QAccessible::Name), "") << name;
            // Qt leaves these to whoever asked for them, and deletes only what it knows.
            QAccessible::deleteAccessibleInterface(QAccessible::registerAccessibleInterface(each));
        }
    }
}

TEST_F(HostSpoken, TicksAreOnesToTurnByTheSpaceBarInAnyColumn) {
    auto& table = widget<QTableView>("catalogue");
    table.setFocus();
    for (const int column : {0, 1, 4}) {
        table.setCurrentIndex(table.model()->index(2, column));
        EXPECT_TRUE(cell(table, 2, 0)->state().checkable);
        EXPECT_FALSE(cell(table, 2, 0)->state().checked);
        const std::string part = cell(table, 2, 0)->text(QAccessible::Name).toStdString();
        const wynconfig::AccessEvents events;
        QTest::keyClick(&table, Qt::Key_Space, Qt::NoModifier);
        EXPECT_TRUE(cell(table, 2, 0)->state().checked) << column;
        EXPECT_EQ(window->catalogue().partsList().size(), 1U);
        QTest::keyClick(&table, Qt::Key_Space, Qt::NoModifier);
        EXPECT_FALSE(cell(table, 2, 0)->state().checked) << column;
        EXPECT_TRUE(events.has(QAccessible::StateChanged, part + ": checked"));
        EXPECT_TRUE(events.has(QAccessible::StateChanged, part + ": unchecked"));
    }
}

TEST_F(HostSpoken, ResultsAreAnnounced) {
    const wynconfig::AccessEvents events;
    window->catalogue().clearPartsList();
    EXPECT_TRUE(events.has(QAccessible::Alert, "The parts list is empty already."));
}

}  // namespace
}  // namespace host
