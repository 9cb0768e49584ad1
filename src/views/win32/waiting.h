// The signs that there is something to wait for: the wait cursor, and a window with a bar.
#pragma once

#include <string>

#include "views/win32/winapi.h"
#include "wynconfig/resource_manager.h"
#include "wynconfig/view.h"

namespace wynconfig::native {

/// The window with a bar. It takes neither the focus nor any input, and is painted each time it is
/// told something, since no message loop does so while the work goes on.
class ProgressWindow {
  public:
    /// @param owner  it stands in front of that; null: in the middle of the screen
    ProgressWindow(HWND owner, const Font& font, bool mirrored);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    /// Shows how far it is by now, and the window itself at the first time.
    void tell(const Progress& progress);

    HWND window() const { return m_window; }
    HWND text() const { return m_text; }
    HWND bar() const { return m_bar; }

  private:
    /// As wide as the text asks for, and never less than before.
    void arrange(const std::wstring& text);

    HWND m_owner;
    int m_dpi;
    HFONT m_font;
    bool m_mirrored;
    HWND m_window;
    HWND m_text;
    HWND m_bar;
    int m_width = 0;
};

/// The wait cursor, as long as one lives: no window is asked for another one while no message loop
/// runs.
class WaitCursor {
  public:
    WaitCursor() : m_before(::SetCursor(::LoadCursorW(nullptr, name()))) {}
    ~WaitCursor() { ::SetCursor(m_before); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    static bool isShown() { return ::GetCursor() == ::LoadCursorW(nullptr, name()); }

  private:
    static LPCWSTR name() { return reinterpret_cast<LPCWSTR>(IDC_WAIT); }

    HCURSOR m_before;
};

/// Paints what is due in this thread's windows at once: work begins before a message loop would
/// have that painted which a closed window covered.
void paintWindows();

}  // namespace wynconfig::native
