// What came of an action is told where the person is, whichever page is in front.
#include <QAction>
#include <QLabel>
#include <QMessageBox>
#include <QStatusTipEvent>
#include <QTableWidget>
#include <QTimer>
#include <fstream>

#include "support/host_window.h"
#include "window/elided_label.h"
#include "window/send_panel.h"
#include "window/session_panel.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostResult : public HostWindow {
  protected:
    std::string result() const {
        EXPECT_TRUE(line().isVisible());
        return told("lastResult");
    }
    ElidedLabel& line() const { return widget<ElidedLabel>("lastResult"); }
    bool isFailure() const { return widget<QLabel>("failureSign").isVisible(); }
    void trigger(const char* action) const { widget<QAction>(action).trigger(); }
    int page() const { return pages().currentIndex(); }

    /// Closes the box that an action brings up.
    void closeBox() const {
        QTimer::singleShot(0, window.get(), [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            box->reject();
        });
    }
};

TEST_F(HostResult, IsNoneAtFirst) {
    EXPECT_FALSE(line().isVisible());
    EXPECT_FALSE(isFailure());
}

TEST_F(HostResult, OfAFailedSendIsMarkedAndItsPageComesToTheFront) {
    for (const int from : {SessionsPage, DeletedPage, SendPage}) {
        pages().setCurrentIndex(from);
        window->sending().sendAction()->trigger();
        EXPECT_EQ(page(), SendPage);
        EXPECT_EQ(result(), "Nothing was sent. The parts list is empty.");
        EXPECT_TRUE(isFailure());
        EXPECT_EQ(line().accessibleName(), "Failure: Nothing was sent. The parts list is empty.");
    }
}

TEST_F(HostResult, OfASuccessfulSendStaysUntilTheNextOne) {
    window->sending().sendAction()->trigger();
    choose("session", "WEB SHOP EXPORT");
    pick("10-0120", 1);
    window->sending().sendAction()->trigger();
    const std::string sentence =
        "The list was written to " + (store.lists() / "web-shop.csv").string() + " (58 bytes).";
    EXPECT_EQ(result(), sentence);
    EXPECT_FALSE(isFailure());
    pages().setCurrentIndex(DeletedPage);
    EXPECT_EQ(result(), sentence);
}

TEST_F(HostResult, OfAProgramIsToldWhenItComes) {
    std::ofstream(store.programs() / "order desk") << "#!/bin/sh\ncat >/dev/null\nexit 3\n";
    choose("session", "DEALER ORDER DESK");
    pick("10-0120", 1);
    click("send");
    pages().setCurrentIndex(SessionsPage);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return result() == "order desk has finished with a failure (its code is 3)."; },
        kPatienceMilliseconds))
        << result();
    EXPECT_TRUE(isFailure());
}

TEST_F(HostResult, OfAnOperationIsToldOnThePageForSending) {
    trigger("held");
    EXPECT_EQ(page(), DeveloperPage);
    // How many they are hangs on what was done in this process before.
    EXPECT_TRUE(result().starts_with(
        "Show what is held in memory: In memory: a session, and part formats: "))
        << result();
    EXPECT_FALSE(isFailure());
    pages().setCurrentIndex(SendPage);
    trigger("add");  // no view is installed: it is cancelled
    EXPECT_EQ(result(), "Add session: not confirmed.");
    EXPECT_EQ(page(), SendPage);
}

TEST_F(HostResult, OfAnOperationThatFailsStaysBehindTheBox) {
    fs::create_directory(store.sessionList());
    closeBox();
    trigger("pick");
    EXPECT_EQ(page(), SendPage);
    EXPECT_TRUE(result().starts_with("Pick from my session list: ")) << result();
    EXPECT_NE(result().find(store.sessionList().string()), std::string::npos) << result();
    EXPECT_TRUE(isFailure());
}

TEST_F(HostResult, OfARestoredItemIsTold) {
    fs::create_directories(store.sessions() / "deleted");
    fs::rename(store.sessions() / "STOCK TAKING.vla",
               store.sessions() / "deleted" / "STOCK TAKING.vla");
    pages().setCurrentIndex(DeletedPage);
    fs::copy_file(store.sessions() / "WEB SHOP EXPORT.vla", store.sessions() / "STOCK TAKING.vla");
    click("restore");
    EXPECT_EQ(result(), "There is a session named STOCK TAKING already; nothing was restored.");
    EXPECT_TRUE(isFailure());
    fs::remove(store.sessions() / "STOCK TAKING.vla");
    click("restore");
    EXPECT_EQ(result(), "Session STOCK TAKING is back.");
    EXPECT_FALSE(isFailure());
}

TEST_F(HostResult, OfAClearedListIsTold) {
    pick("10-0120", 1);
    pick("10-0183", 4);
    window->catalogue().clearPartsList();
    EXPECT_EQ(result(),
              "The parts list was cleared; parts that it held: 2. Undo brings them back.");
    window->catalogue().clearPartsList();
    EXPECT_EQ(result(), "The parts list is empty already.");
}

TEST_F(HostResult, OfAnotherLanguageIsTold) {
    for (QAction* each : window->findChildren<QAction*>())
        if (each->text() == "English") each->trigger();
    EXPECT_EQ(result(), "From now on the language is English.");
}

TEST_F(HostResult, IsNotCoveredByTips) {
    trigger("held");
    const std::string before = result();
    const std::string place = told("store");
    QStatusTipEvent tip("Makes a new session");
    QApplication::sendEvent(window->centralWidget(), &tip);
    EXPECT_EQ(result(), before);
    EXPECT_EQ(told("store"), "Makes a new session");
    QStatusTipEvent none{QString()};
    QApplication::sendEvent(window->centralWidget(), &none);
    EXPECT_EQ(told("store"), place);
}

TEST_F(HostResult, IsShortenedToTheRoomAndWholeInItsToolTip) {
    window->resize(1024, 700);
    choose("session", "WEB SHOP EXPORT");
    const fs::path far = store.root / std::string(120, 'x') / "list.csv";
    emit window->sending().told(isolated(far.string()) + " is written.", false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->width(), 1024);
    EXPECT_EQ(result(), far.string() + " is written.");
    EXPECT_TRUE(withoutMarks(line().painted()).endsWith(QChar(0x2026)))
        << line().painted().toStdString();
    EXPECT_LE(line().fontMetrics().horizontalAdvance(line().painted()), line().width());
    EXPECT_EQ(withoutMarks(line().toolTip()).toStdString(), result());
}

}  // namespace
}  // namespace host
