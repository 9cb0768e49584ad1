// The window with a bar.
#include "views/win32/waiting.h"

#include <algorithm>
#include <limits>

#include "views/win32/classes.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/fonts.h"
#include "views/win32/module.h"
#include "views/win32/placing.h"

namespace wynconfig::native {

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION;
constexpr DWORD kExtended = WS_EX_DLGMODALFRAME | WS_EX_NOACTIVATE;

/// What a bar can count.
int inBar(std::size_t count) {
    return static_cast<int>(
        std::min(count, static_cast<std::size_t>(std::numeric_limits<int>::max())));
}

HWND makeChild(HWND parent, const wchar_t* name, DWORD style) {
    return ::CreateWindowExW(0, name, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                             nullptr, moduleHandle(), nullptr);
}

BOOL CALLBACK paintWindow(HWND window, LPARAM) {
    if (::IsWindowVisible(window))
        ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return TRUE;
}

}  // namespace

ProgressWindow::ProgressWindow(HWND owner, const Font& font, bool mirrored)
    : m_owner(owner), m_dpi(dpiOf(owner)), m_font(makeFont(font, m_dpi)), m_mirrored(mirrored) {
    registerClasses();
    m_window = ::CreateWindowExW(kExtended | (mirrored ? WS_EX_LAYOUTRTL : 0), kFormClass, L"",
                                 kStyle, 0, 0, 0, 0, owner, nullptr, moduleHandle(), nullptr);
    // Assistive programs call the bar by the text in front of it.
    m_text = makeChild(m_window, WC_STATICW, SS_NOPREFIX);
    m_bar = makeChild(m_window, PROGRESS_CLASSW, 0);
    ::SendMessageW(m_text, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
}

ProgressWindow::~ProgressWindow() {
    ::DestroyWindow(m_window);
    ::DeleteObject(m_font);
}

void ProgressWindow::tell(const Progress& progress) {
    ::SetWindowTextW(m_window, embeddedSentence(toWidePlain(progress.title), m_mirrored).c_str());
    const std::wstring text = embeddedSentence(toWide(progress.text), m_mirrored);
    showText(m_text, text);
    ::SendMessageW(m_bar, PBM_SETRANGE32, 0, inBar(progress.all));
    ::SendMessageW(m_bar, PBM_SETPOS, static_cast<WPARAM>(inBar(progress.done)), 0);
    arrange(text);
    if (!::IsWindowVisible(m_window)) {
        ::ShowWindow(m_window, SW_SHOWNOACTIVATE);
        ::NotifyWinEvent(EVENT_SYSTEM_ALERT, m_window, OBJID_WINDOW, CHILDID_SELF);
    }
    // Its owner may have been raised since then.
    ::SetWindowPos(m_window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ::RedrawWindow(m_window, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    // Windows takes a program for hung that looks for no message for some seconds. It is one that
    // nobody sends, so that all others stay where they are.
    constexpr UINT kNever = 0xBFFF;
    MSG message;
    ::PeekMessageW(&message, m_window, kNever, kNever, PM_NOREMOVE);
}

void ProgressWindow::arrange(const std::wstring& text) {
    constexpr int kLeast = 45;  // characters
    const Measure measure(m_font);
    const int margin = scaled(12, m_dpi);
    const int wanted = std::max({static_cast<int>(measure.text(text, DT_NOPREFIX).cx),
                                 measure.chars(kLeast), titleWidth(m_window, m_dpi)});
    if (wanted <= m_width) return;
    m_width = wanted;
    const int line = measure.lineHeight();
    const int barTop = margin + line + scaled(7, m_dpi);
    const int barHeight = scaled(16, m_dpi);
    ::MoveWindow(m_text, margin, margin, m_width, line, FALSE);
    ::MoveWindow(m_bar, margin, barTop, m_width, barHeight, FALSE);
    const SIZE outer =
        outerSize({m_width + 2 * margin, barTop + barHeight + margin}, kStyle, kExtended, m_dpi);
    const POINT place = centredOn(m_owner, outer);
    ::SetWindowPos(m_window, nullptr, place.x, place.y, outer.cx, outer.cy,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void paintWindows() {
    ::EnumThreadWindows(::GetCurrentThreadId(), paintWindow, 0);
}

}  // namespace wynconfig::native
