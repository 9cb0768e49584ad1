/// @file
/// The native view of Windows. This header needs none of Windows' own.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "wynconfig/export.h"
#include "wynconfig/user.h"
#include "wynconfig/view.h"

namespace wynconfig {

/// A view that shows every form in a window of Windows itself. It serves any thread: each one that
/// installs a view makes its own, and uses it on that thread alone. A dialog is read from right to
/// left where its texts are, or where the process lays its windows out so.
class WYNCONFIG_API Win32View : public View {
  public:
    /// The person who drives the real windows by mouse and key messages, instead of the one at the
    /// desk. From the first call on, whatever the view shows is answered by this user.
    virtual User& user() = 0;
    /// Takes the user away again: whatever comes up waits for the person at the desk.
    virtual void dismissUser() = 0;
    /// Is called when a form or box has come up on the screen, with its name (of a box "box", of a
    /// browse dialog "browse"), before the user acts on it.
    virtual void onShown(std::function<void(const std::string& name)> watcher) = 0;
    /// Has the dialogs belong to a window of the host: they stand in front of it, begin at its
    /// centre, and block it while they are up. Without one they belong to the active window of the
    /// thread.
    /// @param window  its handle (HWND), which may go while it is here; 0: none
    virtual void setOwner(std::uintptr_t window) = 0;
};

/// Makes the native view. Raises `Error` where a thread can't have windows.
WYNCONFIG_API std::shared_ptr<Win32View> makeWin32View();

}  // namespace wynconfig
