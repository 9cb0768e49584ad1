// What the lists of the window offer in their menus, and the keys that do the same.
#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QTableWidget>
#include <QTreeWidget>
#include <QWindow>
#include <filesystem>

#include "support/host_window.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using Entries = std::vector<std::string>;

class HostListMenus : public HostWindow {
  protected:
    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    static Entries entries() {
        Entries all;
        for (const QAction* each : menu()->actions())
            all.push_back(each->text().toStdString() + (each->isEnabled() ? "" : " off"));
        return all;
    }

    void clickRight(QAbstractItemView& list, int row) const {
        const QPoint at = list.visualRect(list.model()->index(row, 0)).center();
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier,
                          list.viewport()->mapTo(window.get(), at));
        ASSERT_NE(menu(), nullptr);
    }
};

TEST_F(HostListMenus, HaveTheButtonsBesideTheSessions) {
    pages().setCurrentIndex(SessionsPage);
    auto& sessions = *window->findChild<QListWidget*>();
    clickRight(sessions, 2);
    EXPECT_EQ(sessions.currentRow(), 2);
    EXPECT_EQ(entries(), (Entries{"&Add session…", "&Configure session…", "&Maintain sessions…"}));
    menu()->close();
}

TEST_F(HostListMenus, RestoreADeletedItem) {
    fs::create_directories(store.sessions() / "deleted");
    fs::rename(store.sessions() / "STOCK TAKING.vla",
               store.sessions() / "deleted" / "STOCK TAKING.vla");
    pages().setCurrentIndex(DeletedPage);
    clickRight(widget<QTableWidget>("deletedItems"), 0);
    ASSERT_EQ(entries(), Entries{"Res&tore"});
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(fs::exists(store.sessions() / "STOCK TAKING.vla"));
}

TEST_F(HostListMenus, ClearThePartsList) {
    pick("10-0120", 1);
    clickRight(widget<QTableView>("partsList"), 0);
    EXPECT_EQ(entries(), Entries{"Clear list"});
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->catalogue().partsList().empty());
}

TEST_F(HostListMenus, OfTheDatabaseFollowWhatIsSelected) {
    pages().setCurrentIndex(SessionsPage);
    auto& lists = *pages().currentWidget()->findChild<QTabWidget*>();
    lists.setCurrentIndex(1);
    auto& items = *window->findChild<QTreeWidget*>();
    ASSERT_GT(items.topLevelItemCount(), 0);
    clickRight(items, 0);
    EXPECT_EQ(entries(), (Entries{"&Add session…", "&Configure session… off", "Ta&ke over session…",
                                  "Remo&ve… off"}))
        << "a factory item is not the database's to change";
    menu()->close();
}

TEST_F(HostListMenus, TheDeleteKeyRemovesFromTheDatabase) {
    pages().setCurrentIndex(SessionsPage);
    auto& lists = *pages().currentWidget()->findChild<QTabWidget*>();
    lists.setCurrentIndex(1);
    auto& items = *window->findChild<QTreeWidget*>();
    auto& remove = widget<QAction>("remove-from-database");
    int asked = 0;
    QObject::disconnect(&remove, &QAction::triggered, nullptr, nullptr);
    QObject::connect(&remove, &QAction::triggered, window.get(), [&] { ++asked; });
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    items.setFocus();
    QTest::keyClick(&items, Qt::Key_Delete);
    EXPECT_EQ(asked, 0) << "it is disabled";
    remove.setEnabled(true);
    QTest::keyClick(&items, Qt::Key_Delete);
    EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace host
