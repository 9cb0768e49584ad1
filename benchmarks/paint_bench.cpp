// How soon a person sees each dialog of a large store: from the call, or the press of the button,
// that opens it to the end of its first paint on the desktop view, against a goal.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "bench_store.h"
#include "figures.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig::bench {

namespace {

/// Notes what is painted anywhere in the program.
class Painting : public QObject {
  public:
    Painting() { qApp->installEventFilter(this); }

    void forget() { m_painted.clear(); }
    /// Has events be dealt with until this was painted. All of a window is painted in one go, so
    /// that the rest of it is done by then. False when nothing comes for long.
    bool waitFor(const QObject& widget) const {
        constexpr qint64 patience = 30'000;
        QElapsedTimer waited;
        waited.start();
        while (!m_painted.contains(&widget)) {
            if (waited.elapsed() > patience) return false;
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
        return true;
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) m_painted.insert(watched);
        return false;
    }

  private:
    std::set<const QObject*> m_painted;
};

/// What is done in a dialog on the way to the one that is measured.
struct Step {
    std::string dialog;
    std::function<void(QWidget&)> leave;
};

template <class Widget>
Widget& part(QWidget& window, const char* name) {
    return *window.findChild<Widget*>(QString::fromLatin1(name));
}

void press(QWidget& window, const char* button) {
    part<QPushButton>(window, button).click();
}

/// Runs the clock of a measurement, which stands still at first.
class Clock {
  public:
    explicit Clock(benchmark::State& state) : m_state(state) { m_state.PauseTiming(); }
    ~Clock() {
        if (!m_runs) m_state.ResumeTiming();
    }
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    void go() {
        if (!std::exchange(m_runs, true)) m_state.ResumeTiming();
    }
    void stop() {
        if (std::exchange(m_runs, false)) m_state.PauseTiming();
    }

  private:
    benchmark::State& m_state;
    bool m_runs = false;
};

/// Opens a dialog once, and closes all that came up.
/// @param call  the host's call
/// @param way   what leads on from the dialogs in front of the measured one
/// @param last  the view that the last step brings up in the same dialog; none: another dialog
class Opening {
  public:
    using Part = std::function<QAbstractItemView*(QWidget&)>;

    Opening(std::function<void()> call, std::vector<Step> way, Part last = {})
        : m_call(std::move(call)), m_way(std::move(way)), m_last(std::move(last)) {}

    void operator()(benchmark::State& state, QtView& view) const {
        Clock clock(state);
        Painting painting;
        std::size_t done = 0;
        bool reached = false;
        view.onShown([&](const std::string& name) {
            QWidget& window = *QApplication::activeModalWidget();
            if (name == "box" || !painting.waitFor(window)) {
                state.SkipWithError(("not expected: " + name).c_str());
            } else if (done < m_way.size() && m_way[done].dialog == name) {
                QApplication::processEvents();
                painting.forget();
                if (done + 1 == m_way.size()) clock.go();
                m_way[done++].leave(window);
                if (m_last && done == m_way.size())
                    reached = painting.waitFor(*m_last(window)->viewport());
            } else {
                reached = done == m_way.size();
            }
            if (reached) clock.stop();
            window.close();
        });
        if (m_way.empty()) clock.go();
        m_call();
        clock.stop();
        if (!reached) state.SkipWithError("the dialog did not come up");
    }

  private:
    std::function<void()> m_call;
    std::vector<Step> m_way;
    Part m_last;
};

const std::shared_ptr<QtView>& qtView() {
    static const std::shared_ptr<QtView> view = makeQtView();
    return view;
}

Work firstPaint(int items, const Opening& opening) {
    return [items, opening](benchmark::State& state) {
        keptStore("size-" + std::to_string(items), items, items);
        installView(qtView());
        for (auto _ : state) opening(state, *qtView());
        qtView()->onShown({});
        installView(nullptr);
    };
}

void showSession() {
    std::string name = sessionName(3);
    WYNConfig().showMORAMConfigDlg(name);
}

void showMaintenance() {
    std::string name = sessionName(3);
    WYNConfig().showMORAMMaintenanceDlg(name);
}

void showAdding() {
    std::string name;
    WYNConfig().showAddMORAMConfigDlg(name);
}

std::function<void()> showManager(int sessions) {
    return [sessions] {
        static std::string list;
        static int listed = 0;
        if (std::exchange(listed, sessions) != sessions) {
            list.clear();
            for (int i = 0; i < sessions; ++i) list += (i == 0 ? "" : ",") + sessionName(i);
        }
        WYNConfig().showConfigurableSessionManagerDlg(list);
    };
}

Step pressing(const char* button) {
    return {"frmMORAMConfig", [button](QWidget& window) { press(window, button); }};
}

void turnToFormats(QWidget& window) {
    part<QTabBar>(window, "qt_tabwidget_tabbar").setCurrentIndex(1);
}

QAbstractItemView* formats(QWidget& window) {
    return &part<QAbstractItemView>(window, "lstAvailableFormats");
}

/// Presses a button of the part formats, for the first of them.
Step pressingForFormat(const char* button) {
    return {"frmMORAMConfig", [button](QWidget& window) {
                turnToFormats(window);
                QAbstractItemView& list = *formats(window);
                list.setCurrentIndex(list.model()->index(0, 0));
                press(window, button);
            }};
}

QAbstractItemView* choices(QWidget& window) {
    return part<QComboBox>(window, "cboConfigs").view();
}

void openChoices(QWidget& window) {
    part<QComboBox>(window, "cboConfigs").showPopup();
}

QAbstractItemView* sessions(QWidget& window) {
    return &part<QAbstractItemView>(window, "lstAvailableMORAMs2");
}

/// What half of the names hold.
void typeFilter(QWidget& window) {
    part<QLineEdit>(window, "lstAvailableMORAMs2Filter").setText(QStringLiteral("9"));
}

struct Measured {
    const char* name;
    Opening opening;
};

std::vector<Measured> everyDialog(int items) {
    return {
        {"session", {showSession, {}}},
        {"formats-tab", {showSession, {{"frmMORAMConfig", turnToFormats}}, formats}},
        {"advanced", {showSession, {pressing("btnAdvanced")}}},
        {"file-writer", {showSession, {pressing("btnTallyvane")}}},
        {"format", {showSession, {pressingForFormat("btnEdit")}}},
        {"entry", {showSession, {pressingForFormat("btnRename")}}},
        {"add", {showAdding, {}}},
        {"choices", {showAdding, {{"frmAddMORAMConfig", openChoices}}, choices}},
        {"maintenance", {showMaintenance, {}}},
        {"filter", {showMaintenance, {{"frmMORAMMaintenance", typeFilter}}, sessions}},
        {"manager", {showManager(items), {}}},
    };
}

}  // namespace

void registerPaintFigures() {
    const std::pair<int, double> goals[] = {{10'000, 100}, {100'000, 1000}};
    for (const auto& [items, most] : goals) {
        for (const Measured& each : everyDialog(items)) {
            goalFigure("paint-" + std::string(each.name) + "-" + std::to_string(items),
                       benchmark::kMillisecond, firstPaint(items, each.opening), most, {5, true});
        }
    }
}

}  // namespace wynconfig::bench
