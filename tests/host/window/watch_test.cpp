// What others do to the store while the window is open.
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <algorithm>
#include <fstream>

#include "support/host_window.h"
#include "window/store_watch.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostWatch : public HostWindow {
  protected:
    StoreWatch& watch() const { return *window->findChild<StoreWatch*>(); }
    QComboBox& chosen() const { return widget<QComboBox>("session"); }
    QListWidget& listed() const {
        for (auto* each : window->findChildren<QListWidget*>())
            if (each->accessibleName() == "Sessions of the store") return *each;
        throw std::runtime_error("the window has no list of sessions");
    }
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (int row = 0; row < listed().count(); ++row)
            names.push_back(listed().item(row)->text().toStdString());
        return names;
    }
    bool has(const std::string& name) const {
        return std::ranges::count(names(), name) > 0 &&
               chosen().findText(QString::fromStdString(name)) >= 0;
    }
    bool plans(const std::string& part) const {
        return text("plan").find(part) != std::string::npos;
    }
    template <class Condition>
    static bool comes(Condition condition) {
        return QTest::qWaitFor(condition, kPatienceMilliseconds);
    }
    fs::path file(const std::string& name) const { return store.sessions() / (name + ".vla"); }
    void add(const std::string& name) const { fs::copy_file(file("STOCK TAKING"), file(name)); }
};

TEST_F(HostWatch, SessionsOfOthersComeAndGoByThemselves) {
    add("NEW ONE");
    EXPECT_TRUE(comes([&] { return has("NEW ONE"); }));
    const fs::path deleted = store.sessions() / "deleted";
    fs::create_directories(deleted);
    fs::rename(file("NEW ONE"), deleted / "NEW ONE.vla");
    EXPECT_TRUE(comes([&] { return !has("NEW ONE"); }));
    EXPECT_TRUE(comes([&] { return widget<QTableWidget>("deletedItems").rowCount() == 1; }));
    fs::remove(deleted / "NEW ONE.vla");
    EXPECT_TRUE(comes([&] { return widget<QTableWidget>("deletedItems").rowCount() == 0; }));
}

TEST_F(HostWatch, KeepsWhatTheUserIsAt) {
    choose("session", "WORKSHOP COUNTER");
    choose("partFormat", "QUANTITY FIRST");
    widget<QLineEdit>("vin").setText("ZZZ12");
    pick("10-0120", 2);
    auto& catalogue = widget<QTableView>("catalogue");
    catalogue.selectRow(40);
    const int scrolled = catalogue.verticalScrollBar()->value();
    add("AAA");
    ASSERT_TRUE(comes([&] { return has("AAA"); }));
    EXPECT_EQ(chosen().currentText(), "WORKSHOP COUNTER");
    EXPECT_EQ(listed().currentItem()->text(), "WORKSHOP COUNTER");
    EXPECT_EQ(widget<QComboBox>("partFormat").currentText(), "QUANTITY FIRST");
    EXPECT_EQ(widget<QLineEdit>("vin").text(), "ZZZ12");
    EXPECT_EQ(window->catalogue().partsList().size(), 1U);
    EXPECT_EQ(catalogue.currentIndex().row(), 40);
    EXPECT_EQ(catalogue.verticalScrollBar()->value(), scrolled);
}

TEST_F(HostWatch, PartFormatsAreThoseThatTheSessionHasByNow) {
    choose("session", "STOCK TAKING");
    ASSERT_EQ(widget<QComboBox>("partFormat").count(), 2);
    fs::copy_file(file("LABEL PRINTING"), store.root / "new");
    fs::rename(store.root / "new", file("STOCK TAKING"));
    EXPECT_TRUE(comes([&] { return widget<QComboBox>("partFormat").count() == 1; }));
    fs::remove(store.formats() / "SHELF LABEL.vla");
    EXPECT_TRUE(comes([&] { return plans("The part format SHELF LABEL can't be read"); }));
}

TEST_F(HostWatch, SaysThatTheChosenSessionIsGone) {
    choose("session", "STOCK TAKING");
    fs::remove(file("STOCK TAKING"));
    EXPECT_TRUE(comes([&] { return !has("STOCK TAKING"); }));
    const std::string now = chosen().currentText().toStdString();
    EXPECT_EQ(told("lastResult"),
              "The session STOCK TAKING is not there any more; " + now + " is chosen now.");
    EXPECT_EQ(listed().currentItem()->text().toStdString(), now);
}

TEST_F(HostWatch, PreviewFollowsTheFolderOfTheFileAndThatOfTheProgram) {
    choose("session", "WEB SHOP EXPORT");
    pick("10-0120", 1);
    fs::rename(store.lists(), folder / "aside");
    EXPECT_TRUE(comes([&] { return plans("Nothing will be sent:"); }));
    fs::rename(folder / "aside", store.lists());
    EXPECT_TRUE(comes([&] { return plans("  is made, with"); }));
    std::ofstream(store.lists() / "other.csv") << "other";
    fs::rename(store.lists() / "other.csv", store.lists() / "web-shop.csv");
    EXPECT_TRUE(comes([&] { return plans("replace the 5 bytes that"); }));
    choose("session", "DEALER ORDER DESK");
    fs::remove(store.programs() / "order desk");
    EXPECT_TRUE(comes([&] { return plans("it is not there"); }));
}

TEST_F(HostWatch, TellsThatTheStoreWentAwayAndHasItAgain) {
    choose("session", "STOCK TAKING");
    fs::rename(store.root, folder / "aside");
    EXPECT_TRUE(comes([&] { return widget<QLabel>("faults").isVisible(); }));
    const std::string lost =
        "The folder of the store, " + store.root.string() +
        ", is not there any more: it was moved or deleted, or its drive is not connected. Bring it "
        "back, or open another store.";
    EXPECT_EQ(told("faults"), lost);
    EXPECT_EQ(told("lastResult"), lost);
    EXPECT_TRUE(widget<QLabel>("failureSign").isVisible());
    EXPECT_TRUE(names().empty());
    EXPECT_TRUE(plans("No session of the store can be read."));
    EXPECT_FALSE(widget<SentenceLabel>("firstSteps").isVisible());
    fs::rename(folder / "aside", store.root);
    EXPECT_TRUE(comes([&] { return !widget<QLabel>("faults").isVisible(); }));
    EXPECT_EQ(told("lastResult"), "The folders of the store are there again.");
    EXPECT_EQ(chosen().currentText(), "STOCK TAKING");
    EXPECT_EQ(listed().currentItem()->text(), "STOCK TAKING");
    add("LATER");  // it is watched again
    EXPECT_TRUE(comes([&] { return has("LATER"); }));
}

TEST_F(HostWatch, TellsThatAFolderOfTheStoreWentAway) {
    fs::rename(store.formats(), folder / "aside");
    EXPECT_TRUE(comes([&] { return widget<QLabel>("faults").isVisible(); }));
    EXPECT_TRUE(told("faults").starts_with("The folder " + store.formats().string() +
                                           " is not there any more."));
}

TEST_F(HostWatch, ChangesNothingUnderADialog) {
    QDialog dialog(window.get());
    dialog.setModal(true);
    dialog.show();
    add("NEW ONE");
    ASSERT_TRUE(comes([&] { return watch().isPending(); }));
    watch().settle();
    EXPECT_FALSE(has("NEW ONE"));
    EXPECT_TRUE(watch().isPending());
    dialog.close();
    EXPECT_TRUE(comes([&] { return has("NEW ONE"); }));
}

TEST_F(HostWatch, ChangesNothingUnderAnOpenList) {
    chosen().showPopup();
    add("NEW ONE");
    ASSERT_TRUE(comes([&] { return watch().isPending(); }));
    watch().settle();
    EXPECT_FALSE(has("NEW ONE"));
    chosen().hidePopup();
    EXPECT_TRUE(comes([&] { return has("NEW ONE"); }));
}

TEST_F(HostWatch, FindsFoldersThatComeStepByStep) {
    StoreWatch other([] { return false; });
    int times = 0;
    QObject::connect(&other, &StoreWatch::changed, [&] { ++times; });
    const fs::path far = folder / "a";
    other.watch({far / "b" / "c"});
    fs::create_directory(far);
    QCoreApplication::processEvents();
    fs::create_directory(far / "b");
    QCoreApplication::processEvents();
    fs::create_directory(far / "b" / "c");
    EXPECT_TRUE(comes([&] { return times == 1; }));
    fs::create_directory(far / "b" / "c" / "d");
    EXPECT_TRUE(comes([&] { return times == 2; }));
}

TEST_F(HostWatch, TellsManyChangesOnce) {
    int times = 0;
    QObject::connect(&watch(), &StoreWatch::changed, window.get(), [&] { ++times; });
    ASSERT_FALSE(watch().isPending());
    for (int i = 0; i < 30; ++i) add("NEW " + std::to_string(i));
    ASSERT_TRUE(comes([&] { return watch().isPending(); }));
    watch().settle();
    EXPECT_TRUE(has("NEW 29"));
    EXPECT_EQ(times, 1);
}

TEST_F(HostWatch, F5ReadsEverythingAtOnce) {
    add("NEW ONE");
    EXPECT_FALSE(has("NEW ONE"));
    QAction& anew = widget<QAction>("readAnew");
    EXPECT_EQ(anew.shortcut(), QKeySequence(Qt::Key_F5));
    anew.trigger();
    EXPECT_TRUE(has("NEW ONE"));
    EXPECT_EQ(told("lastResult"), "The store was read anew.");
    choose("session", "NEW ONE");
    fs::remove(file("NEW ONE"));
    anew.trigger();
    EXPECT_TRUE(told("lastResult").starts_with("The session NEW ONE is not there any more;"));
}

}  // namespace
}  // namespace host
