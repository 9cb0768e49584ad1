// The hands of the played person: mouse and key events as a real mouse and keyboard cause them.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <string>

namespace wynconfig::desktop {

/// Sees to it that the window is exposed and active, as the one that a person works in is.
void bringUp(QWidget& window);
/// Presses and lets go the left mouse button. Gives the focus first, if a click does so there.
void mouseClick(QWidget& widget, const QPoint& at);
/// Presses and lets go the button once more, quickly after a click at the same spot.
void mouseDoubleClick(QWidget& widget, const QPoint& at);
/// Gives the focus as a click would, to the widget or the one around it that takes it, without
/// pressing anything.
void mouseFocus(QWidget& widget);
/// Presses and lets go a key in the widget that has the window's focus.
void keyClick(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
              const QString& text = {});
/// Presses Alt and the key of a character, as a mark in a caption asks for. False when nothing in
/// the window waits for it.
bool shortcut(QWidget& window, const QString& character);
/// Asks a widget what it is, as the mouse does behind "What's this?".
std::string helpOn(QWidget& widget);
/// Types into the widget that has the window's focus: by the keyboard, or, where a keyboard has no
/// keys for it or it is long, as an input method hands text over.
void typeText(QWidget& window, const QString& text);

}  // namespace wynconfig::desktop
