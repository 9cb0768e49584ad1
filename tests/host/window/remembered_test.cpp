// What of the window is there again at the next start.
#include "window/remembered.h"

#include <QAction>
#include <QScreen>
#include <QSplitter>
#include <fstream>

#include "support/host_window.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostRemembered : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        startAgain();
    }

    void startAgain() {
        window.reset();
        QCoreApplication::processEvents();
        remembered.reset();  // writes what it has
        remembered.emplace(folder / "settings" / "window.ini");
        window = std::make_unique<MainWindow>(workplace, &*remembered);
        window->show();
        QCoreApplication::processEvents();
    }
    void quitAndStartAgain() {
        ASSERT_TRUE(closeBy("quit"));
        startAgain();
    }

    std::optional<Remembered> remembered;
};

TEST_F(HostRemembered, PartsListIsThereAgain) {
    pick("10-0120", 2);
    pick("10-0183", 7);
    const std::vector<PickedPart> before = window->catalogue().partsList();
    quitAndStartAgain();
    EXPECT_EQ(window->catalogue().partsList(), before);
    EXPECT_FALSE(widget<QAction>("undo").isEnabled());
}

TEST_F(HostRemembered, NothingIsAskedOfAListThatIsThereAgain) {
    pick("10-0120", 2);
    EXPECT_TRUE(closeBy("stay"));
    EXPECT_EQ(question(), "");
}

TEST_F(HostRemembered, QuittingAsksWhereNothingCanBeKept) {
    window.reset();
    remembered.reset();
    fs::remove_all(folder / "settings");
    std::ofstream(folder / "settings") << "no folder";
    startAgain();
    EXPECT_TRUE(closeBy("stay"));
    window->show();
    pick("10-0120", 2);
    EXPECT_FALSE(closeBy("stay"));
    EXPECT_EQ(question(), "The parts list was not sent. Quit all the same?");
    sendToFile();
    EXPECT_TRUE(closeBy("stay"));
}

TEST_F(HostRemembered, PartsListIsThereAlsoWhenTheHostDidNotCloseItsWindow) {
    pick("10-0120", 2);
    startAgain();
    EXPECT_EQ(window->catalogue().partsList().size(), 1U);
    window->catalogue().clearPartsList();
    startAgain();
    EXPECT_TRUE(window->catalogue().partsList().empty());
}

TEST_F(HostRemembered, PartsAreThoseOfTheCatalogue) {
    remembered->keepParts({{"10-0120", 5000, ""}, {"no such part", 1, ""}, {"10-0183", -2, ""}},
                          false);
    startAgain();
    const std::vector<PickedPart> list = window->catalogue().partsList();
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list.front().number, "10-0120");
    EXPECT_EQ(list.front().quantity, 999);
}

TEST_F(HostRemembered, SessionIsChosenAgain) {
    choose("session", "WEB SHOP EXPORT");
    quitAndStartAgain();
    EXPECT_EQ(widget<QComboBox>("session").currentText(), "WEB SHOP EXPORT");
    remembered->keepSession("GONE");
    startAgain();
    EXPECT_EQ(widget<QComboBox>("session").currentIndex(), 0);
}

TEST_F(HostRemembered, LanguageIsTheChosenOne) {
    EXPECT_EQ(remembered->language(), "");
    for (QAction* each : window->findChildren<QAction*>())
        if (each->text() == "English") each->trigger();
    quitAndStartAgain();
    EXPECT_EQ(remembered->language(), "en");
}

TEST_F(HostRemembered, WindowHasItsSizeAndPlace) {
    // The screen of these tests is hardly wider than the window has to be.
    const QPoint place = window->screen()->availableGeometry().topLeft() + QPoint(1, 11);
    const QSize size = window->minimumSizeHint() + QSize(0, 5);
    window->resize(size);
    window->move(place);
    QCoreApplication::processEvents();
    quitAndStartAgain();
    EXPECT_EQ(window->size(), size);
    EXPECT_EQ(window->pos(), place);
}

TEST_F(HostRemembered, WindowLiesOnTheScreenThatThereIs) {
    window->resize(5000, 4000);
    window->move(9000, -3000);
    QCoreApplication::processEvents();
    quitAndStartAgain();
    EXPECT_EQ(window->frameGeometry(), window->screen()->availableGeometry());
}

TEST_F(HostRemembered, FirstWindowIsNoLargerThanTheScreen) {
    const QSize screen = window->screen()->availableSize();
    EXPECT_EQ(window->size().boundedTo(screen), window->size());
    EXPECT_LT(window->height(), screen.height());
}

TEST_F(HostRemembered, WindowIsAsLargeAsTheScreenAgain) {
    window->showMaximized();
    QCoreApplication::processEvents();
    quitAndStartAgain();
    EXPECT_TRUE(window->isMaximized());
}

/// Moves a splitter as a person does.
void drag(QSplitter& splitter, const QPoint& way) {
    QSplitterHandle* handle = splitter.handle(1);
    const QPoint from = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, from);
    QTest::mouseMove(handle, from + way);
    QTest::mouseRelease(handle, Qt::LeftButton, {}, from + way);
}

TEST_F(HostRemembered, SplittersAreWhereTheyWereMovedTo) {
    for (const auto* each : window->findChildren<QSplitter*>())
        EXPECT_FALSE(each->objectName().isEmpty());
    const auto sizes = [&] { return widget<QSplitter>("catalogueSplitter").sizes(); };
    const QList<int> before = sizes();
    drag(widget<QSplitter>("catalogueSplitter"), {0, -30});
    const QList<int> moved = sizes();
    EXPECT_NE(moved, before);
    quitAndStartAgain();
    EXPECT_EQ(sizes(), moved);
    pages().setCurrentIndex(DeveloperPage);
    drag(widget<QSplitter>("developerSplitter"), {0, 30});
    const QList<int> ofDevelopers = widget<QSplitter>("developerSplitter").sizes();
    quitAndStartAgain();
    quitAndStartAgain();  // without a look at that page
    pages().setCurrentIndex(DeveloperPage);
    QCoreApplication::processEvents();
    EXPECT_EQ(widget<QSplitter>("developerSplitter").sizes(), ofDevelopers);
    EXPECT_EQ(sizes(), moved);
}

TEST_F(HostRemembered, SplittersThatNobodyMovedAreAsAtTheFirstStart) {
    const auto ofDevelopers = [&] {
        pages().setCurrentIndex(DeveloperPage);
        QCoreApplication::processEvents();
        return widget<QSplitter>("developerSplitter").sizes();
    };
    const QList<int> first = ofDevelopers();
    startAgain();
    for (int times = 0; times < 3; ++times) quitAndStartAgain();
    EXPECT_EQ(ofDevelopers(), first);
}

TEST_F(HostRemembered, NothingIsKeptOfWhatCantBeRead) {
    window.reset();
    remembered.reset();
    fs::create_directories(folder / "settings");
    std::ofstream(folder / "settings" / "window.ini")
        << "[window]\nplace=soon\n=\n\\x\n[parts]\nsize=-3\n";
    startAgain();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->catalogue().partsList().empty());
}

TEST(HostPlace, StaysAsItIsWhereThereIsRoom) {
    EXPECT_EQ(fitted({10, 20, 300, 200}, {0, 0, 800, 600}), QRect(10, 20, 300, 200));
}

TEST(HostPlace, MovesIntoItsArea) {
    const QRect area(100, 50, 800, 600);
    EXPECT_EQ(fitted({-2000, 9000, 300, 200}, area), QRect(100, 450, 300, 200));
    EXPECT_EQ(fitted({700, 0, 300, 200}, area), QRect(600, 50, 300, 200));
}

TEST(HostPlace, ShrinksToItsArea) {
    EXPECT_EQ(fitted({10, 20, 3000, 200}, {0, 0, 800, 600}), QRect(0, 20, 800, 200));
    EXPECT_EQ(fitted({10, 20, 3000, 2000}, {5, 6, 800, 600}), QRect(5, 6, 800, 600));
}

}  // namespace
}  // namespace host
