// Taking changes of the parts list back.
#include <QAction>
#include <QTableView>

#include "support/host_window.h"

namespace host {
namespace {

using Quantities = std::vector<std::pair<std::string, long>>;

class HostUndo : public HostWindow {
  protected:
    Quantities list() const {
        Quantities found;
        for (const PickedPart& part : window->catalogue().partsList())
            found.emplace_back(part.number, part.quantity);
        return found;
    }
    QAction& undo() const { return widget<QAction>("undo"); }
    QAction& redo() const { return widget<QAction>("redo"); }
};

TEST_F(HostUndo, HasNothingToTakeBackAtFirst) {
    EXPECT_FALSE(undo().isEnabled());
    EXPECT_FALSE(redo().isEnabled());
    pick("10-0120", 0);  // as it is already
    EXPECT_FALSE(undo().isEnabled());
}

TEST_F(HostUndo, BringsAClearedListBackAsAWhole) {
    pick("10-0120", 2);
    pick("10-0183", 7);
    const Quantities before = list();
    ASSERT_EQ(before.size(), 2U);
    window->catalogue().clearPartsList();
    EXPECT_TRUE(list().empty());
    undo().trigger();
    EXPECT_EQ(list(), before);
    EXPECT_EQ(told("lastResult"), "Undone: Clear list.");
    redo().trigger();
    EXPECT_TRUE(list().empty());
    EXPECT_EQ(told("lastResult"), "Done again: Clear list.");
}

TEST_F(HostUndo, TakesSingleChangesBackOneByOne) {
    pick("10-0120", 1);
    pick("10-0120", 5);
    undo().trigger();
    EXPECT_EQ(list(), (Quantities{{"10-0120", 1}}));
    EXPECT_EQ(told("lastResult"), "Undone: 10-0120.");
    undo().trigger();
    EXPECT_TRUE(list().empty());
    EXPECT_FALSE(undo().isEnabled());
    redo().trigger();
    redo().trigger();
    EXPECT_EQ(list(), (Quantities{{"10-0120", 5}}));
    EXPECT_FALSE(redo().isEnabled());
}

TEST_F(HostUndo, TakesATickBack) {
    auto& table = widget<QTableView>("catalogue");
    const QModelIndex first = table.model()->index(0, CatalogueModel::PartNumber);
    ASSERT_TRUE(table.model()->setData(first, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(list(), (Quantities{{first.data(Qt::EditRole).toString().toStdString(), 1}}));
    undo().trigger();
    EXPECT_TRUE(list().empty());
}

TEST_F(HostUndo, LetsWhatIsSentFollow) {
    choose("session", "BODY SHOP QUOTES");
    choose("partFormat", "TAB SEPARATED");
    pick("10-0350", 12);
    const std::string before = text("programList");
    window->catalogue().clearPartsList();
    EXPECT_NE(text("programList"), before);
    undo().trigger();
    EXPECT_EQ(text("programList"), before);
}

TEST_F(HostUndo, IsInReachOfTheKeyboard) {
    pick("10-0120", 1);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    widget<QTableView>("catalogue").setFocus();
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(list().empty());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(list().size(), 1U);
}

}  // namespace
}  // namespace host
