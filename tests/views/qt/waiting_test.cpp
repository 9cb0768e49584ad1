// The signs of work on the desktop: the cursor, the panel with a bar, and what a closed window
// leaves behind.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QProgressBar>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "support/access_events.h"
#include "support/test_form.h"
#include "views/qt/waiting.h"
#include "wynconfig/qt_view.h"

namespace wynconfig {
namespace {

using Stage = Progress::Stage;

Progress lasting(const std::string& text, std::size_t done, std::size_t all) {
    return {Stage::Lasts, "&Please Wait", text, done, all};
}
Progress stage(Stage stage) {
    Progress told;
    told.stage = stage;
    return told;
}

bool hasWaitCursor() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

desktop::ProgressPanel* panel() {
    for (QWidget* each : QApplication::allWidgets()) {
        if (auto* found = dynamic_cast<desktop::ProgressPanel*>(each)) return found;
    }
    return nullptr;
}

/// A window of the host that counts how often it is painted.
class PaintedWindow : public QWidget {
  public:
    int painted = 0;

  protected:
    void paintEvent(QPaintEvent*) override { ++painted; }
};

class PaintCounter : public QObject {
  public:
    int count = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
};

class OneButton : public TestForm {
  public:
    OneButton() : TestForm("frmTest") {
        btnOK.Click = [this] { Unload(); };
    }

    Button btnOK{*this, "btnOK", "OK"};

  private:
    FormLayout declareLayout() override { return {layout::single(btnOK), &btnOK, &btnOK}; }
};

class WaitingTest : public ::testing::Test {
  protected:
    void SetUp() override { installView(view); }
    void TearDown() override {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        installView(nullptr);
    }

    std::shared_ptr<QtView> view = makeQtView();
};

TEST_F(WaitingTest, TheWaitCursorIsThereAtOnceAndGoes) {
    view->showProgress(stage(Stage::Begins));
    EXPECT_TRUE(hasWaitCursor());
    EXPECT_EQ(panel(), nullptr);
    view->showProgress(stage(Stage::Ends));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(WaitingTest, TheCursorOfTheHostIsThereAgain) {
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    view->showProgress(stage(Stage::Begins));
    EXPECT_TRUE(hasWaitCursor());
    view->showProgress(stage(Stage::Ends));
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::CrossCursor);
    QGuiApplication::restoreOverrideCursor();
}

TEST_F(WaitingTest, ThePanelTellsHowFarItIs) {
    view->showProgress(stage(Stage::Begins));
    view->showProgress(lasting("Updating sessions: 5 of 20", 5, 20));
    const desktop::ProgressPanel* shown = panel();
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->title(), "Please Wait");
    EXPECT_EQ(shown->text(), "Updating sessions: 5 of 20");
    EXPECT_EQ(shown->bar().value(), 5);
    EXPECT_EQ(shown->bar().maximum(), 20);
    view->showProgress(lasting("Saving sessions: 1 of 2", 1, 2));
    EXPECT_EQ(panel(), shown);
    EXPECT_EQ(shown->text(), "Saving sessions: 1 of 2");
    EXPECT_EQ(shown->bar().value(), 1);
    view->showProgress(stage(Stage::Ends));
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(WaitingTest, ThePanelGrowsWithItsText) {
    view->showProgress(stage(Stage::Begins));
    view->showProgress(lasting("1", 1, 2));
    const QString text(200, u'm');
    view->showProgress(lasting(text.toStdString(), 2, 2));
    const desktop::ProgressPanel* shown = panel();
    ASSERT_NE(shown, nullptr);
    EXPECT_LT(shown->height(), 200);
    EXPECT_GE(shown->width(), shown->fontMetrics().horizontalAdvance(text));
    view->showProgress(stage(Stage::Ends));
}

TEST_F(WaitingTest, ThePanelTakesNeitherFocusNorInput) {
    OneButton form;
    form.setSize(9150, 6600);
    view->user().onForm("frmTest", [&](User& u) {
        QWidget* const dialog = QApplication::activeModalWidget();
        bool acted = false;
        QTimer::singleShot(0, [&] { acted = true; });
        view->showProgress(stage(Stage::Begins));
        view->showProgress(lasting("1 of 2", 1, 2));
        desktop::ProgressPanel* shown = panel();
        ASSERT_NE(shown, nullptr);
        PaintCounter paints;
        shown->installEventFilter(&paints);
        view->showProgress(lasting("2 of 2", 2, 2));
        EXPECT_EQ(shown->parentWidget(), dialog);
        EXPECT_EQ(QApplication::activeModalWidget(), dialog);
        EXPECT_TRUE(dialog->isActiveWindow());
        EXPECT_TRUE(dialog->rect().contains(shown->geometry()));
        EXPECT_GT(paints.count, 0) << "it is painted all the same";
        EXPECT_FALSE(acted) << "no event loop runs in the midst of the work";
        view->showProgress(stage(Stage::Ends));
        u.click("btnOK");
    });
    form.Show();
    view->user().finish();
}

TEST_F(WaitingTest, TheBarIsSpokenOf) {
    view->showProgress(stage(Stage::Begins));
    view->showProgress(lasting("Updating sessions: 5 of 20", 5, 20));
    auto* bar = panel()->findChild<QProgressBar*>();
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(bar);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::ProgressBar);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Updating sessions: 5 of 20");
    ASSERT_NE(spoken->valueInterface(), nullptr);
    EXPECT_EQ(spoken->valueInterface()->currentValue().toInt(), 5);
    view->showProgress(stage(Stage::Ends));
}

TEST_F(WaitingTest, TheBarIsAnnouncedAndThenHowFarItIs) {
    const AccessEvents events;
    view->showProgress(stage(Stage::Begins));
    view->showProgress(lasting("Updating sessions: 5 of 20", 5, 20));
    EXPECT_EQ(events.of(QAccessible::Alert), std::vector<std::string>{"Please Wait"});
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(panel());
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage) << "which is read as it comes up";
    EXPECT_EQ(spoken->text(QAccessible::Description), "Updating sessions: 5 of 20");
    view->showProgress(lasting("Updating sessions: 9 of 20", 9, 20));
    EXPECT_TRUE(events.has(QAccessible::ValueChanged, "Updating sessions: 9 of 20: 9"));
    EXPECT_TRUE(events.has(QAccessible::NameChanged, "Updating sessions: 9 of 20"));
    EXPECT_EQ(events.of(QAccessible::Alert).size(), 1U);
    view->showProgress(stage(Stage::Ends));
}

TEST_F(WaitingTest, TheBarRunsAsTheLanguageIsRead) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    view->showProgress(stage(Stage::Begins));
    view->showProgress(lasting("1 of 2", 1, 2));
    EXPECT_TRUE(panel()->bar().isRightToLeft());
    view->showProgress(stage(Stage::Ends));
}

TEST_F(WaitingTest, WhatAClosedDialogCoveredIsPaintedBeforeTheWorkBegins) {
    PaintedWindow host;
    host.resize(200, 100);
    host.show();
    QCoreApplication::processEvents();
    OneButton form;
    view->user().onForm("frmTest", [](User& u) { u.click("btnOK"); });
    form.Show();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "it has left the screen";
    host.painted = 0;
    view->showProgress(stage(Stage::Begins));
    EXPECT_EQ(host.painted, 1);
    view->showProgress(stage(Stage::Ends));
    view->showProgress(stage(Stage::Begins));
    EXPECT_EQ(host.painted, 1) << "nothing has closed since then";
    view->showProgress(stage(Stage::Ends));
    view->user().finish();
}

TEST_F(WaitingTest, AClosedBoxLeavesNothingEither) {
    PaintedWindow host;
    host.resize(200, 100);
    host.show();
    QCoreApplication::processEvents();
    view->user().onBox();
    view->showMessage({nullptr, "text", boxstyle::OkOnly, "title", ""});
    host.painted = 0;
    QCoreApplication::processEvents();
    host.painted = 0;
    view->showProgress(stage(Stage::Begins));
    EXPECT_EQ(host.painted, 0) << "the event loop has seen to it";
    view->showProgress(stage(Stage::Ends));
    view->user().onBox();
    view->showMessage({nullptr, "text", boxstyle::OkOnly, "title", ""});
    host.painted = 0;
    view->showProgress(stage(Stage::Begins));
    EXPECT_EQ(host.painted, 1);
    view->showProgress(stage(Stage::Ends));
    view->user().finish();
}

TEST_F(WaitingTest, AViewThatGoesTakesItsSignsAlong) {
    auto other = makeQtView();
    other->showProgress(stage(Stage::Begins));
    other->showProgress(lasting("1 of 2", 1, 2));
    EXPECT_NE(panel(), nullptr);
    other.reset();
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace wynconfig
