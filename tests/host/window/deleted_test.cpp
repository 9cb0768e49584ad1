// The deleted items of the sample host, and their way back.
#include <gtest/gtest.h>

#include <QListWidget>
#include <QTableWidget>

#include "sample/deleted_items.h"
#include "support/host_window.h"
#include "window/session_panel.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using Kind = DeletedItem::Kind;

class HostDeleted : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        discard(store.sessions(), "STOCK TAKING.vla");
        discard(store.formats(), "SHELF LABEL.vla");
        pages().setCurrentIndex(DeletedPage);
        QCoreApplication::processEvents();
    }

    /// Moves a file as a deletion does.
    static void discard(const fs::path& itemFolder, const std::string& name) {
        fs::create_directories(itemFolder / "deleted");
        fs::rename(itemFolder / name, itemFolder / "deleted" / name);
    }

    QTableWidget& table() const { return widget<QTableWidget>("deletedItems"); }

    std::vector<std::string> rows() const {
        std::vector<std::string> rows;
        for (int row = 0; row < table().rowCount(); ++row)
            rows.push_back(
                (table().item(row, 0)->text() + "|" + table().item(row, 1)->text()).toStdString());
        return rows;
    }

    std::string outcome() const { return told("restored"); }
};

TEST_F(HostDeleted, ListsWhatLiesInBothFolders) {
    EXPECT_EQ(rows(),
              (std::vector<std::string>{"STOCK TAKING|Session", "SHELF LABEL|Part format"}));
    EXPECT_EQ(deletedItems(store), (std::vector<DeletedItem>{{Kind::Session, "STOCK TAKING"},
                                                             {Kind::PartFormat, "SHELF LABEL"}}));
}

TEST_F(HostDeleted, ListsNothingWithoutTheFolders) {
    fs::remove_all(store.sessions() / "deleted");
    fs::remove_all(store.formats() / "deleted");
    EXPECT_TRUE(deletedItems(store).empty());
    pages().setCurrentIndex(SendPage);
    pages().setCurrentIndex(DeletedPage);
    EXPECT_TRUE(rows().empty());
    EXPECT_FALSE(widget<QPushButton>("restore").isEnabled());
    EXPECT_EQ(outcome(), "Nothing lies here.");
    discard(store.sessions(), "WEB SHOP EXPORT.vla");
    pages().setCurrentIndex(SendPage);
    pages().setCurrentIndex(DeletedPage);
    EXPECT_EQ(outcome(), "");
}

TEST_F(HostDeleted, RestoresASession) {
    const std::string before = readFile(store.sessions() / "deleted/STOCK TAKING.vla");
    table().selectRow(0);
    click("restore");
    EXPECT_EQ(outcome(), "Session STOCK TAKING is back.");
    EXPECT_EQ(readFile(store.sessions() / "STOCK TAKING.vla"), before);
    EXPECT_FALSE(fs::exists(store.sessions() / "deleted/STOCK TAKING.vla"));
    EXPECT_EQ(rows(), (std::vector<std::string>{"SHELF LABEL|Part format"}));
}

TEST_F(HostDeleted, BringsARestoredSessionBackIntoTheLists) {
    const auto sessions = window->findChildren<QListWidget*>();
    ASSERT_EQ(sessions.size(), 1);
    const auto listed = [&] {
        const bool inList =
            !sessions.front()->findItems("STOCK TAKING", Qt::MatchExactly).isEmpty();
        EXPECT_EQ(inList, widget<QComboBox>("session").findText("STOCK TAKING") >= 0);
        return inList;
    };
    window->sessions().refresh();
    emit window->sessions().performed();
    EXPECT_FALSE(listed());
    table().selectRow(0);
    click("restore");
    EXPECT_TRUE(listed());
}

TEST_F(HostDeleted, RestoresAPartFormat) {
    table().selectRow(1);
    click("restore");
    EXPECT_EQ(outcome(), "Part format SHELF LABEL is back.");
    EXPECT_TRUE(fs::exists(store.formats() / "SHELF LABEL.vla"));
    EXPECT_FALSE(fs::exists(store.formats() / "deleted/SHELF LABEL.vla"));
}

TEST_F(HostDeleted, RefusesWhenALikeNamedItemIsThere) {
    fs::copy_file(store.sessions() / "WEB SHOP EXPORT.vla", store.sessions() / "Stock Taking.vla");
    const std::string before = readFile(store.sessions() / "Stock Taking.vla");
    table().selectRow(0);
    click("restore");
    EXPECT_EQ(outcome(), "There is a session named Stock Taking already; nothing was restored.");
    EXPECT_EQ(readFile(store.sessions() / "Stock Taking.vla"), before);
    EXPECT_TRUE(fs::exists(store.sessions() / "deleted/STOCK TAKING.vla"));
    EXPECT_FALSE(fs::exists(store.sessions() / "STOCK TAKING.vla"));
}

TEST_F(HostDeleted, TakesASessionAndAPartFormatOfOneNameApart) {
    fs::copy_file(store.formats() / "FIXED WIDTH.vla", store.formats() / "STOCK TAKING.vla");
    table().selectRow(0);
    click("restore");
    EXPECT_EQ(outcome(), "Session STOCK TAKING is back.");
}

TEST_F(HostDeleted, TellsThatAnItemIsGoneMeanwhile) {
    fs::remove(store.sessions() / "deleted/STOCK TAKING.vla");
    table().selectRow(0);
    click("restore");
    EXPECT_TRUE(outcome().starts_with("STOCK TAKING can't be restored: ")) << outcome();
}

TEST_F(HostDeleted, IsInReachOfTheKeyboard) {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(table().hasFocus());
    QTest::keyClick(window.get(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows().size() == 1; }, 2000));
}

}  // namespace
}  // namespace host
