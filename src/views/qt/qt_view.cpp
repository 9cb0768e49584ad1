// The desktop view: keeps the windows on the screen in order, and hands them to the played person.
#include "wynconfig/qt_view.h"

#include <QApplication>
#include <QLibrary>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <QThread>
#include <QWindow>
#include <clocale>
#include <cmath>
#include <exception>
#include <map>
#include <memory>
#include <utility>

#include "views/qt/access.h"
#include "views/qt/boxes.h"
#include "views/qt/convert.h"
#include "views/qt/form_window.h"
#include "views/qt/person/hands.h"
#include "views/qt/person/person.h"
#include "views/qt/waiting.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

using desktop::FormWindow;

/// A connection to the X server that the environment names. As long as it is open the server does
/// not begin anew, which one without other clients may do just when Qt comes.
class XServer {
  public:
    XServer() = default;
    ~XServer() {
        if (m_connection) m_disconnect(m_connection);
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// Whether the server answers. Where its library is missing nobody can tell; then neither can
    /// Qt use it.
    bool answers() {
        if (!m_connect || !m_hasError || !m_disconnect) return false;
        for (int i = 0; i < kTries; ++i) {
            m_connection = m_connect(nullptr, nullptr);
            if (m_hasError(m_connection) == 0) return true;
            m_disconnect(m_connection);
            m_connection = nullptr;
            QThread::msleep(kPause);  // it may just begin anew
        }
        return false;
    }

  private:
    static constexpr int kTries = 10;
    static constexpr unsigned long kPause = 50;  // milliseconds

    using Connect = void* (*)(const char* display, int* screen);
    using HasError = int (*)(void* connection);
    using Disconnect = void (*)(void* connection);

    QLibrary m_library{QStringLiteral("xcb"), 1};
    Connect m_connect = reinterpret_cast<Connect>(m_library.resolve("xcb_connect"));
    HasError m_hasError = reinterpret_cast<HasError>(m_library.resolve("xcb_connection_has_error"));
    Disconnect m_disconnect = reinterpret_cast<Disconnect>(m_library.resolve("xcb_disconnect"));
    void* m_connection = nullptr;
};

/// Raises where there is no display: Qt would end the process. A host that chose a platform of Qt
/// other than X knows what it does.
/// @param server  is kept open until Qt is there
void requireDisplay([[maybe_unused]] XServer& server) {
#ifdef Q_OS_LINUX
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const bool chosen = !platform.isEmpty() && !platform.startsWith("xcb");
    if (chosen || (platform.isEmpty() && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))) return;
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        throw Error(errc::InvalidCall,
                    "The desktop view needs a display, and neither DISPLAY nor WAYLAND_DISPLAY "
                    "names one.");
    if (!server.answers())
        throw Error(errc::InvalidCall, "The desktop view needs a display, and \"" +
                                           qgetenv("DISPLAY").toStdString() +
                                           "\" does not answer.");
#endif
}

/// Makes the application object where the host has none. It is never deleted: windows of the host
/// and the platform's own clean-up may need it until the very end.
void provideApplication() {
    if (!QCoreApplication::instance()) {
        XServer server;
        requireDisplay(server);
        static char name[] = "wynconfig";
        static char* arguments[] = {name, nullptr};
        static int count = 1;
        // The constructor sets the process's locale; numbers of the host must read as before.
        const std::string numbers = std::setlocale(LC_NUMERIC, nullptr);
        new QApplication(count, arguments);
        std::setlocale(LC_NUMERIC, numbers.c_str());
    }
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw Error(errc::InvalidCall,
                    "The desktop view shows widgets, for which this program has to make a "
                    "QApplication in place of its QGuiApplication or QCoreApplication.");
    if (QThread::currentThread() != QCoreApplication::instance()->thread())
        throw Error(errc::InvalidCall,
                    "The desktop view works on the thread of the QApplication alone.");
}

class Desktop : public QtView {
  public:
    Desktop() : m_person(m_screen) {
        provideApplication();
        desktop::correctSpeech();
    }

    void joinThread() override { provideApplication(); }
    void showModal(Form& form) override;
    int showMessage(const MessageRequest& box) override;
    std::string browse(const BrowseRequest& request) override;
    void raise(Form& form, bool topMost) override;
    long deviceContext(Form&) override;
    void showProgress(const Progress& progress) override;

    User& user() override {
        m_driven = true;
        return m_person;
    }
    void dismissUser() override { m_driven = false; }
    void savePicture(const std::string& path) override;
    std::string spokenTree() override;
    void setOwner(QWidget* window) override {
        m_ownerWidget = window ? window->window() : nullptr;
        m_ownerNumber = 0;
    }
    void setOwner(std::uintptr_t window) override {
        m_ownerWidget = QWidget::find(static_cast<WId>(window));
        m_ownerNumber = m_ownerWidget ? 0 : window;
    }
    void onShown(std::function<void(const std::string& name)> watcher) override {
        m_watcher = std::move(watcher);
    }

  private:
    /// Shows a box or browse dialog until it is answered.
    template <class Dialog, class Act>
    void runDialog(Dialog& dialog, const std::string& name, const Act& act);
    template <class Act>
    void cameUp(QWidget& window, const std::string& name, const Act& act);
    /// The window of a form, or null.
    FormWindow* windowOf(const Form* form) const;
    QWidget* parentFor(const Form* owner) const;
    /// The window on top, as it is by now. Raises `UserError` when there is none.
    /// @param wanted  what for, at the end of a sentence
    QWidget& onTop(const std::string& wanted);
    /// Something has left the screen.
    void leftScreen();
    /// Has a window that came up without a parent belong to the window of another toolkit.
    void giveOwner(QWidget& window) const;

    desktop::Screen m_screen;
    desktop::Person m_person;
    bool m_driven = false;
    QPointer<QWidget> m_ownerWidget;
    std::uintptr_t m_ownerNumber = 0;  ///< of a window that is none of this toolkit
    std::function<void(const std::string&)> m_watcher;
    std::map<const Form*, bool> m_raised;  ///< forms raised before they had a window
    desktop::Waiting m_waiting;
    std::shared_ptr<bool> m_uncovered = std::make_shared<bool>(false);  ///< see `leftScreen`
};

FormWindow* Desktop::windowOf(const Form* form) const {
    for (FormWindow* each : m_screen.forms) {
        if (form && each->form() == form) return each;
    }
    return nullptr;
}

QWidget* Desktop::parentFor(const Form* owner) const {
    if (FormWindow* window = windowOf(owner)) return window;
    if (FormWindow* window = m_screen.top()) return window;
    if (m_ownerWidget) return m_ownerWidget;
    return m_ownerNumber ? nullptr : QApplication::activeWindow();
}

void Desktop::giveOwner(QWidget& window) const {
    if (!m_ownerNumber || window.parentWidget()) return;
    QWindow* const owner = QWindow::fromWinId(static_cast<WId>(m_ownerNumber));
    if (!owner) return;
    window.winId();  // makes its native window
    owner->setParent(nullptr);
    window.windowHandle()->setTransientParent(owner);
    QObject::connect(&window, &QObject::destroyed, owner, &QObject::deleteLater);
}

/// Runs in the event loop of what came up, so that nothing may be thrown from here.
template <class Act>
void Desktop::cameUp(QWidget& window, const std::string& name, const Act& act) {
    if (m_driven) desktop::bringUp(window);
    if (m_watcher) m_watcher(name);
    if (m_driven) act();
}

void Desktop::showModal(Form& form) {
    // It may have been told to go before it came up.
    if (!form.loaded()) return;
    FormWindow window(form, userInput(), parentFor(nullptr));
    m_screen.forms.push_back(&window);
    m_screen.windows.push_back(&window);
    const auto leave = qScopeGuard([this] {
        m_screen.forms.pop_back();
        m_screen.windows.pop_back();
        leftScreen();
    });
    if (const auto found = m_raised.find(&form); found != m_raised.end()) {
        window.setWindowFlag(Qt::WindowStaysOnTopHint, found->second);
        m_raised.erase(found);
    }
    giveOwner(window);
    window.run([&] {
        window.guarded([&] { cameUp(window, window.name(), [&] { m_person.meet(window); }); });
    });
}

template <class Dialog, class Act>
void Desktop::runDialog(Dialog& dialog, const std::string& name, const Act& act) {
    m_screen.windows.push_back(&dialog);
    const auto leave = qScopeGuard([this] {
        m_screen.windows.pop_back();
        leftScreen();
    });
    std::exception_ptr failure;
    const auto begin = [&] {
        try {
            cameUp(dialog, name, act);
        } catch (...) {
            failure = std::current_exception();
            dialog.reject();
        }
    };
    QMetaObject::invokeMethod(&dialog, begin, Qt::QueuedConnection);
    dialog.exec();
    if (failure) std::rethrow_exception(failure);
}

int Desktop::showMessage(const MessageRequest& wanted) {
    QMessageBox box(parentFor(wanted.owner));
    desktop::setUp(box, wanted);
    giveOwner(box);
    runDialog(box, "box", [&] { m_person.answer(box, wanted); });
    FormWindow* const window = m_screen.top();
    if (window && (wanted.style & boxstyle::Critical)) window->markRefused(wanted.text);
    return desktop::answerOf(box);
}

std::string Desktop::browse(const BrowseRequest& request) {
    QFileDialog dialog(parentFor(request.owner));
    desktop::setUp(dialog, request);
    giveOwner(dialog);
    runDialog(dialog, "browse", [&] { m_person.pickPath(dialog, request); });
    return dialog.result() == QDialog::Accepted ? desktop::pathOf(dialog) : std::string();
}

void Desktop::raise(Form& form, bool topMost) {
    FormWindow* window = windowOf(&form);
    if (!window) {
        m_raised[&form] = topMost;
        return;
    }
    // Set on the native window: the widget would be hidden and made anew.
    if (QWindow* handle = window->windowHandle())
        handle->setFlag(Qt::WindowStaysOnTopHint, topMost);
    window->raise();
    window->activateWindow();
}

long Desktop::deviceContext(Form&) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? std::lround(screen->logicalDotsPerInch()) : 0;
}

/// What it covered is painted by the event loop, unless work begins before that runs again.
void Desktop::leftScreen() {
    if (std::exchange(*m_uncovered, true)) return;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [uncovered = m_uncovered] { *uncovered = false; },
        Qt::QueuedConnection);
}

void Desktop::showProgress(const Progress& progress) {
    switch (progress.stage) {
        case Progress::Stage::Begins:
            m_waiting.begin();
            if (std::exchange(*m_uncovered, false)) desktop::paintWindows();
            break;
        case Progress::Stage::Lasts:
            m_waiting.panel(parentFor(nullptr)).tell(progress);
            break;
        case Progress::Stage::Ends:
            m_waiting.end();
            break;
    }
    if (m_driven) m_person.watch(progress.stage, m_waiting.panel());
}

QWidget& Desktop::onTop(const std::string& wanted) {
    if (m_screen.windows.empty()) throw UserError("there is no window " + wanted);
    if (FormWindow* window = m_screen.top()) window->sync();
    return *m_screen.windows.back();
}

void Desktop::savePicture(const std::string& path) {
    if (!onTop("to take a picture of").grab().save(desktop::toQt(path), "PNG"))
        throw UserError("no picture could be saved to " + path);
}

std::string Desktop::spokenTree() {
    return wynconfig::spokenTree(onTop("to be read"));
}

}  // namespace

std::shared_ptr<QtView> makeQtView() {
    return std::make_shared<Desktop>();
}

}  // namespace wynconfig
