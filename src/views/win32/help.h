// The window that has all help of a dialog: it stands beside the form and belongs to it.
#pragma once

#include "views/win32/winapi.h"
#include "wynconfig/help.h"

namespace wynconfig::native {

class HelpWindow {
  public:
    HelpWindow() = default;
    ~HelpWindow() { close(); }
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    /// Shows the help in front of the form's window, in place of what it showed before.
    /// @param form      the form's window
    /// @param font      stays with the caller, who keeps it as long as this is shown
    /// @param mirrored  from right to left
    void show(HWND form, const HelpPage& page, HFONT font, bool mirrored);
    void close();
    /// Whether a message of the thread was one for this window, such as its Escape key.
    bool takes(MSG& message);
    /// Null unless it is on the screen.
    HWND window() const;
    /// The box with the text: each line of `HelpPage::lines` is one, with an empty one before
    /// names.
    HWND text() const;

  private:
    void make(HWND form, HFONT font, bool mirrored);

    HWND m_window = nullptr;
};

}  // namespace wynconfig::native
