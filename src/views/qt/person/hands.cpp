// The hands of the played person: mouse and key events as a real mouse and keyboard cause them.
#include "views/qt/person/hands.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTextDocumentFragment>
#include <QWindow>
#include <algorithm>

#include "views/qt/convert.h"

// Qt's own way from the keyboard to its shortcuts, which events that are sent straight to a widget
// don't take; its test library declares it like this.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k,
                                               Qt::KeyboardModifiers mods,
                                               const QString& text = QString(),
                                               bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace wynconfig::desktop {

namespace {

constexpr qint64 kPatienceMs = 200;
constexpr qsizetype kLongText = 200;

void sendMouse(QWidget& widget, QEvent::Type type, const QPoint& at) {
    const bool press = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget.mapTo(widget.window(), at), widget.mapToGlobal(at),
                      Qt::LeftButton, press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

bool onKeyboard(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar each) { return each.isPrint() && !each.isSurrogate(); });
}

}  // namespace

void bringUp(QWidget& window) {
    QElapsedTimer waited;
    waited.start();
    const QWindow* handle = window.windowHandle();
    while (handle && !handle->isExposed() && waited.elapsed() < kPatienceMs)
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    if (window.isActiveWindow()) return;
    window.activateWindow();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    // Where no window manager hands the activation on, the toolkit has to be told.
    if (!window.isActiveWindow()) QApplication::setActiveWindow(&window);
}

void mouseFocus(QWidget& widget) {
    for (QWidget* each = &widget; each && !each->isWindow(); each = each->parentWidget()) {
        if (!(each->focusPolicy() & Qt::ClickFocus)) continue;
        each->setFocus(Qt::MouseFocusReason);
        // What that led to is on the screen before the next event of the mouse.
        QCoreApplication::sendPostedEvents();
        return;
    }
}

void mouseClick(QWidget& widget, const QPoint& at) {
    const QPointer<QWidget> target(&widget);
    mouseFocus(widget);
    if (target && target->isEnabled() && target->isVisible())
        sendMouse(widget, QEvent::MouseButtonPress, at);
    if (target && target->isVisible()) sendMouse(widget, QEvent::MouseButtonRelease, at);
}

void mouseDoubleClick(QWidget& widget, const QPoint& at) {
    const QPointer<QWidget> target(&widget);
    sendMouse(widget, QEvent::MouseButtonDblClick, at);
    if (target && target->isVisible()) sendMouse(widget, QEvent::MouseButtonRelease, at);
}

void keyClick(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QWidget* focused = window.focusWidget();
    const QPointer<QWidget> target(focused ? focused : &window);
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(target, &press);
    if (!target || !target->isVisible()) return;
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(target, &release);
}

bool shortcut(QWidget& window, const QString& character) {
    if (character.isEmpty()) return false;
    QWidget* focused = window.focusWidget();
    return qt_sendShortcutOverrideEvent(focused ? focused : &window, 0, character.front().unicode(),
                                        Qt::AltModifier, character);
}

std::string helpOn(QWidget& widget) {
    auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
    QWidget& under = area ? *area->viewport() : widget;
    const QPoint at = under.rect().center();
    QHelpEvent event(QEvent::QueryWhatsThis, at, under.mapToGlobal(at));
    // The widgets around this one are not asked in its place.
    if (!QApplication::sendEvent(&under, &event) || !event.isAccepted()) return {};
    return fromQt(QTextDocumentFragment::fromHtml(widget.whatsThis()).toRawText());
}

void typeText(QWidget& window, const QString& text) {
    if (text.size() <= kLongText && onKeyboard(text)) {
        for (const QChar each : text)
            keyClick(window, Qt::Key_unknown, Qt::NoModifier, QString(each));
    } else if (QWidget* focused = window.focusWidget()) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(focused, &event);
    }
}

}  // namespace wynconfig::desktop
