// The window that has all help of a dialog: a dialog of Windows' own class, so that assistive
// programs read it out.
#include "views/win32/help.h"

#include <string>
#include <utility>

#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/fonts.h"
#include "views/win32/module.h"
#include "views/win32/placing.h"

namespace wynconfig::native {

namespace {

constexpr int kTextOfHelp = 100;
constexpr DWORD kHelpStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr DWORD kHelpExtended = WS_EX_DLGMODALFRAME;

/// A word that Windows itself has for a button, in the user's language, without its mark.
std::wstring systemWord(UINT number, const wchar_t* otherwise) {
    wchar_t word[64] = L"";
    if (::LoadStringW(::GetModuleHandleW(L"user32.dll"), number, word, 64) <= 0) return otherwise;
    return toWidePlain(fromWide(word));
}

std::wstring wholeText(const HelpPage& page) {
    std::string all = page.title + "\r\n" + page.text;
    for (const HelpEntry& each : page.entries)
        all += "\r\n\r\n" + each.title() + "\r\n" + each.text;
    return toWide(all);
}

INT_PTR CALLBACK helpProcedure(HWND window, UINT message, WPARAM w, LPARAM) {
    const bool closing = message == WM_CLOSE || (message == WM_COMMAND && LOWORD(w) == IDCANCEL);
    if (closing) ::DestroyWindow(window);
    return closing ? TRUE : FALSE;
}

/// An empty dialog, as Windows wants it told.
struct BareDialog {
    DLGTEMPLATE dialog{};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

HWND makeChild(HWND parent, const wchar_t* name, const std::wstring& text, DWORD style,
               DWORD extended, int id) {
    return ::CreateWindowExW(extended, name, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0,
                             0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                             moduleHandle(), nullptr);
}

}  // namespace

HWND HelpWindow::window() const {
    return m_window && ::IsWindow(m_window) ? m_window : nullptr;
}

HWND HelpWindow::text() const {
    return window() ? ::GetDlgItem(m_window, kTextOfHelp) : nullptr;
}

bool HelpWindow::takes(MSG& message) {
    const HWND shown = window();
    if (!shown || (message.hwnd != shown && !::IsChild(shown, message.hwnd))) return false;
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
        // A box of several lines would have the window closed only later.
        close();
        return true;
    }
    return ::IsDialogMessageW(shown, &message) != 0;
}

void HelpWindow::close() {
    if (window()) ::DestroyWindow(m_window);
    m_window = nullptr;
}

void HelpWindow::make(HWND form, HFONT font, bool mirrored) {
    constexpr int kChars = 64;
    constexpr int kLines = 24;
    BareDialog bare;
    bare.dialog.style = kHelpStyle;
    bare.dialog.dwExtendedStyle = mirrored ? WS_EX_LAYOUTRTL : 0;
    m_window = ::CreateDialogIndirectParamW(moduleHandle(), &bare.dialog, form, helpProcedure, 0);
    const int dpi = dpiOf(form);
    const Measure measure(font);
    const std::wstring closing = systemWord(807, L"Close");
    const int margin = scaled(12, dpi);
    const int width = measure.chars(kChars);
    const int height = kLines * measure.lineHeight();
    const int buttonWidth = measure.chars(static_cast<int>(closing.size()) + 8);
    const int buttonHeight = measure.lineHeight() + scaled(10, dpi);
    const HWND box =
        makeChild(m_window, WC_EDITW, {}, WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY,
                  WS_EX_CLIENTEDGE, kTextOfHelp);
    const HWND button =
        makeChild(m_window, WC_BUTTONW, closing, WS_TABSTOP | BS_DEFPUSHBUTTON, 0, IDCANCEL);
    ::MoveWindow(box, margin, margin, width, height, FALSE);
    ::MoveWindow(button, margin + width - buttonWidth, height + 2 * margin, buttonWidth,
                 buttonHeight, FALSE);
    for (HWND each : {box, button})
        ::SendMessageW(each, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const SIZE inside{width + 2 * margin, height + buttonHeight + 3 * margin};
    const SIZE outer = outerSize(inside, kHelpStyle, kHelpExtended, dpi);
    const POINT place = centredOn(form, outer);
    ::SetWindowPos(m_window, nullptr, place.x, place.y, outer.cx, outer.cy, SWP_NOZORDER);
}

void HelpWindow::show(HWND form, const HelpPage& page, HFONT font, bool mirrored) {
    if (!window()) make(form, font, mirrored);
    if (!m_window) return;
    const std::wstring title = toWide(page.title) + L" \u2013 " + systemWord(808, L"Help");
    ::SetWindowTextW(m_window, embeddedSentence(title, mirrored).c_str());
    ::SetWindowTextW(text(), wholeText(page).c_str());
    ::ShowWindow(m_window, SW_SHOW);
    ::SetFocus(text());
    // Else all of it would be selected.
    ::SendMessageW(text(), EM_SETSEL, 0, 0);
}

}  // namespace wynconfig::native
