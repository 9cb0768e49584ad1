// The module that this code is loaded from, and what it takes from a Windows that may be an older
// one.
#pragma once

#include "views/win32/winapi.h"

namespace wynconfig::native {

/// The program or library that has this code.
HINSTANCE moduleHandle();

/// The common controls of version 6, whatever the host's own manifest says: as long as one lives,
/// windows are made by the manifest that this module has as its resource number 2. Without such a
/// resource they are those of the host.
class OwnControls {
  public:
    OwnControls();
    ~OwnControls();
    OwnControls(const OwnControls&) = delete;
    OwnControls& operator=(const OwnControls&) = delete;

  private:
    ULONG_PTR m_cookie = 0;
    bool m_active = false;
};

/// Dots in an inch where a window is; of the main screen for none.
int dpiOf(HWND window);
/// A length of 96 dots to the inch in those of another screen.
inline int scaled(int length, int dpi) {
    return ::MulDiv(length, dpi, USER_DEFAULT_SCREEN_DPI);
}
/// The size of a window whose inside has this size.
SIZE outerSize(SIZE inside, DWORD style, DWORD extended, int dpi);
/// The measures and fonts of the user's settings.
NONCLIENTMETRICSW userMetrics(int dpi);
/// Where windows may be on the screen that this one is on.
RECT workArea(HWND window);

}  // namespace wynconfig::native
