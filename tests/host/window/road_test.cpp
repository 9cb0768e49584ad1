// The road of somebody new, from an empty store to the first list sent: by the keyboard alone, and
// by the mouse, with the keyboard for what is typed.
#include <QAbstractItemView>
#include <QTabBar>
#include <functional>

#include "installed_view.h"
#include "support/host_window.h"
#include "window/session_panel.h"
#include "wynconfig/qt_view.h"

namespace host {
namespace {

namespace fs = std::filesystem;

/// A person at the windows in front, and how much there was to do.
class Hands {
  public:
    static QWidget& front() {
        if (!QApplication::activeWindow()) throw std::runtime_error("no window is active");
        return *QApplication::activeWindow();
    }
    template <class W = QWidget>
    static W& seen(const char* name) {
        W* found = front().findChild<W*>(QString::fromUtf8(name));
        if (!found || !found->isVisible())
            throw std::runtime_error(std::string("nobody sees ") + name);
        return *found;
    }

    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        ++m_keys;
        QTest::keyClick(focused(), key, with);
    }
    void type(const QString& text) const { QTest::keyClicks(focused(), text); }
    void tabTo(const char* name) {
        const QWidget* target = &seen(name);
        for (int i = 0; i < kMostTabs && focused() != target; ++i) press(Qt::Key_Tab);
        EXPECT_EQ(focused(), target) << name;
    }
    void click(const char* name) { clickAt(seen(name), seen(name).rect().center()); }
    void clickAt(QWidget& widget, QPoint place) {
        ++m_clicks;
        QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
    }
    void clickRow(const char* list, const QString& text) {
        auto& view = seen<QAbstractItemView>(list);
        const QModelIndexList rows = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole,
                                                         text, 1, Qt::MatchContains);
        ASSERT_FALSE(rows.isEmpty()) << text.toStdString();
        clickAt(*view.viewport(), view.visualRect(rows.front()).center());
    }

    int keys() const { return m_keys; }
    int clicks() const { return m_clicks; }

  private:
    static constexpr int kMostTabs = 40;

    static QWidget* focused() {
        QWidget* widget = front().focusWidget();
        return widget ? widget : &front();
    }

    int m_keys = 0;
    int m_clicks = 0;
};

class HostRoad : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        fs::create_directory(empty.root);
        window->sessions().openStore(empty.root);
        activate();
    }
    /// What a window manager does when the last dialog has gone.
    void activate() const {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    void TearDown() override { EXPECT_EQ(m_waiting, 0) << "a dialog did not come up"; }

    /// Does this once a dialog of that name is in front.
    void when(const QString& dialog, const std::function<void()>& act) {
        ++m_waiting;
        auto* timer = new QTimer(window.get());
        timer->start();
        QObject::connect(timer, &QTimer::timeout, window.get(), [this, timer, dialog, act] {
            const QWidget* front = QApplication::activeModalWidget();
            if (!front || !front->isActiveWindow() || front->objectName() != dialog) return;
            timer->deleteLater();
            timer->stop();
            --m_waiting;
            act();
        });
    }

    QString program() const {
        return QString::fromStdString((store.programs() / "label-printer").string());
    }
    /// What the program was sent.
    std::string received() const {
        const fs::path file = store.programs() / "label-printer.received";
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(file); }, kPatienceMilliseconds));
        return readFile(file);
    }

    Hands hands;
    StoreFolders empty{folder / "empty"};

  private:
    InstalledView m_installed{wynconfig::makeQtView()};
    int m_waiting = 0;
};

TEST_F(HostRoad, IsGoneByTheKeyboardAlone) {
    when(kHostDialog, [&] { hands.press(Qt::Key_Return); });
    when("frmAddMORAMConfig", [&] {
        hands.type("first");
        hands.press(Qt::Key_Return);
    });
    when("frmMORAMConfig", [&] {
        hands.tabTo("txtProgramPath");
        hands.type(program());
        hands.press(Qt::Key_Tab, Qt::ControlModifier);
        hands.tabTo("lstAvailableFormats");
        hands.press(Qt::Key_Down);
        hands.tabTo("btnAdd");
        hands.press(Qt::Key_Space);
        hands.tabTo("btnOK");
        hands.press(Qt::Key_Return);
    });
    hands.press(Qt::Key_Space);
    activate();
    hands.press(Qt::Key_F, Qt::ControlModifier);
    hands.type("10-0120");
    hands.press(Qt::Key_Down);
    hands.type("12");
    hands.press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_NE(received().find("10-0120"), std::string::npos);
    EXPECT_EQ(hands.clicks(), 0);
    EXPECT_LE(hands.keys(), 20) << "beside what is typed";
}

TEST_F(HostRoad, IsGoneByTheMouse) {
    when(kHostDialog, [&] { hands.click("ok"); });
    when("frmAddMORAMConfig", [&] {
        hands.type("first");
        hands.click("btnOK");
    });
    when("frmMORAMConfig", [&] {
        hands.click("txtProgramPath");
        hands.type(program());
        auto& tabs = *Hands::front().findChild<QTabBar*>();
        hands.clickAt(tabs, tabs.tabRect(1).center());
        hands.clickRow("lstAvailableFormats", "COMMA SEPARATED");
        hands.click("btnAdd");
        hands.click("btnOK");
    });
    hands.click("firstSession");
    activate();
    hands.clickRow("catalogue", "10-0183");
    hands.type("12");
    hands.click("send");
    EXPECT_NE(received().find("10-0183"), std::string::npos);
    EXPECT_EQ(hands.keys(), 0);
    EXPECT_LE(hands.clicks(), 10);
}

}  // namespace
}  // namespace host
