// The classes of the component's own windows.
#pragma once

#include "views/win32/winapi.h"

namespace wynconfig::native {

inline constexpr wchar_t kFormClass[] = L"WYNConfigForm";
inline constexpr wchar_t kPaneClass[] = L"WYNConfigPane";

/// Whoever gets the messages of a form's window; it lives as long as that.
class WindowOwner {
  public:
    virtual ~WindowOwner() = default;
    /// @param result  what the message comes to
    /// @return false: it is left to Windows
    virtual bool received(UINT message, WPARAM w, LPARAM l, LRESULT& result) noexcept = 0;
};

/// Registers the classes, once in a process.
void registerClasses();

/// Has a window of the form class hand its messages to the owner; null: no longer.
void setOwner(HWND window, WindowOwner* owner);
/// Whoever gets the messages of a window; null: nobody, or it is of another class.
WindowOwner* ownerOf(HWND window);

}  // namespace wynconfig::native
