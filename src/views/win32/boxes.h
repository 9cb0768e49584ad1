// Message boxes: dialogs of Windows' own class, so that assistive programs read them out, with the
// captions and the font that are asked for.
#pragma once

#include <exception>
#include <functional>
#include <optional>

#include "views/win32/modality.h"
#include "views/win32/winapi.h"
#include "wynconfig/view.h"

namespace wynconfig::native {

class MessageWindow {
  public:
    explicit MessageWindow(const MessageRequest& wanted) : m_wanted(wanted) {}

    /// Shows the box until it is answered.
    /// @param cameUp  is called from the box's message loop as soon as it runs
    /// @return number of the pressed button
    int run(HWND owner, bool mirrored, std::function<void()> cameUp);
    /// The box while it is on the screen.
    HWND window() const { return m_window; }
    /// The button of a number; null when the box has none.
    HWND button(int number) const { return ::GetDlgItem(m_window, number); }

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    bool on(UINT message, WPARAM w);
    void build();
    void end(int number);
    int unanswered() const;

    const MessageRequest& m_wanted;
    std::function<void()> m_cameUp;
    std::exception_ptr m_failure;
    std::optional<Modality> m_modality;
    HWND m_window = nullptr;
    HFONT m_font = nullptr;
    bool m_mirrored = false;  ///< runs from right to left
};

}  // namespace wynconfig::native
