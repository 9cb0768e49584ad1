/// @file
/// The desktop view, on Qt widgets. This header needs no Qt.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "wynconfig/export.h"
#include "wynconfig/user.h"
#include "wynconfig/view.h"

class QWidget;

namespace wynconfig {

/// A view that shows every form in a real window. Makes a `QApplication` when the process has none
/// by then, and keeps it until the process ends. Works off screen (QT_QPA_PLATFORM=offscreen). To
/// be used on the thread of the `QApplication`: on any other one `installView` raises `Error`.
class WYNCONFIG_API QtView : public View {
  public:
    /// The person who drives the real widgets by real mouse and key events, instead of the one at
    /// the desk. From the first call on, whatever the view shows is answered by this user.
    virtual User& user() = 0;
    /// Takes the user away again: whatever comes up waits for the person at the desk.
    virtual void dismissUser() = 0;
    /// Saves a picture of the window on top, as PNG; raises `UserError` when that fails.
    /// @param path  UTF-8
    virtual void savePicture(const std::string& path) = 0;
    /// What a screen reader finds in the window on top, see `spokenTree`; raises `UserError` when
    /// there is none.
    virtual std::string spokenTree() = 0;
    /// Is called when a form or box has come up on the screen, with its name (of a box "box", of a
    /// browse dialog "browse"), before the user acts on it.
    virtual void onShown(std::function<void(const std::string& name)> watcher) = 0;
    /// Has the dialogs belong to a window of the host: they stand in front of it and begin at its
    /// centre. Without one they belong to the active window of the `QApplication`.
    /// @param window  any widget of that window, which may go while it is here; null: none
    virtual void setOwner(QWidget* window) = 0;
    /// The same for a host with another toolkit, whose window the dialogs block only as far as the
    /// window system does.
    /// @param window  its number with the window system (on X11 the window's id); 0: none. Must
    ///                be there whenever a dialog comes up.
    virtual void setOwner(std::uintptr_t window) = 0;
};

/// Makes the desktop view. Raises `Error` where it can't work: without a display, in a program
/// whose application object shows no widgets, and on another thread than that of the
/// `QApplication`.
WYNCONFIG_API std::shared_ptr<QtView> makeQtView();

/// Has a window of the host be as clear as the dialogs are, in light colours as in dark ones: all
/// texts can be read, also those of what is disabled or selected, and the outlines of boxes,
/// options, lists, ticks in rows and buttons can be seen. What is put into the window later gets
/// the same, and colours that the `QApplication` takes later are followed. Outlines are drawn over
/// those of Qt's own style, Fusion, alone; styles and palettes that the host set on single widgets
/// stay as they are. Touches nothing of the `QApplication`. Once is enough for a window.
/// @param window  a window, not a widget in it
WYNCONFIG_API void clarify(QWidget& window);

/// What a screen reader finds in a window, as text for tests to look at: a line for each element
/// that can be seen, two blanks further in than the one that holds it. A line has the role, by Qt's
/// word for it, and the name in quotes; then, where there is such, the content behind "=", the
/// labels that it goes by, the description in round brackets, and the states in square ones.
/// @param window  a window, or a widget in it
/// @return UTF-8, with a line end behind each line
WYNCONFIG_API std::string spokenTree(QWidget& window);

}  // namespace wynconfig
