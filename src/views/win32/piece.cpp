// A control and its window: what all kinds have in common.
#include "views/win32/piece.h"

#include <algorithm>

#include "views/win32/access.h"
#include "views/win32/convert.h"
#include "views/win32/module.h"
#include "wynconfig/form.h"

namespace wynconfig::native {

void Piece::make(HWND parent, const wchar_t* windowClass, DWORD style, DWORD extended) {
    m_takesFocus = (style & WS_TABSTOP) != 0;
    m_window = ::CreateWindowExW(extended, windowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0,
                                 0, 0, 0, parent, nullptr, moduleHandle(), nullptr);
    if (m_window) ::SetWindowSubclass(m_window, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
}

Piece::~Piece() {
    if (m_window) ::RemoveWindowSubclass(m_window, procedure, 1);
}

LRESULT CALLBACK Piece::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                  DWORD_PTR piece) {
    auto& self = *reinterpret_cast<Piece*>(piece);
    LRESULT result = 0;
    bool done = false;
    self.m_stage.door()([&](const UserInput&) {
        result = self.received(message, w, l);
        done = true;
    });
    return done ? result : ::DefSubclassProc(window, message, w, l);
}

LRESULT Piece::received(UINT message, WPARAM w, LPARAM l) {
    if (asksForAccess(message, l)) m_stage.describe(*this);
    const LRESULT result = passOn(message, w, l);
    if (message == WM_SETFOCUS) m_stage.focusCame(*this);
    return result;
}

LRESULT Piece::passOn(UINT message, WPARAM w, LPARAM l) const {
    return ::DefSubclassProc(m_window, message, w, l);
}

LRESULT Piece::send(UINT message, WPARAM w, LPARAM l) const {
    return ::SendMessageW(m_window, message, w, l);
}

int Piece::scale(int length) const {
    return scaled(length, m_stage.dpi());
}

bool Piece::inReach() const {
    return ::IsWindowEnabled(m_window) && ::IsWindowVisible(m_window) &&
           ::IsWindowEnabled(::GetAncestor(m_window, GA_ROOT));
}

void Piece::show() {
    dirty = false;
    renewFont();
    showContent();
    const BOOL enabled = m_control.enabled() ? TRUE : FALSE;
    if (::IsWindowEnabled(m_window) != enabled) ::EnableWindow(m_window, enabled);
    if (m_takesFocus) {
        const LONG_PTR style = ::GetWindowLongPtrW(m_window, GWL_STYLE);
        const LONG_PTR stop =
            m_control.tabStop() ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP};
        if (stop != style) ::SetWindowLongPtrW(m_window, GWL_STYLE, stop);
    }
}

void Piece::showVisible(bool visible) {
    const bool shown = (::GetWindowLongPtrW(m_window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != visible) ::ShowWindow(m_window, visible ? SW_SHOWNA : SW_HIDE);
}

void Piece::renewFont() {
    const std::shared_ptr<const Font> own = m_control.font();
    const std::shared_ptr<const Font> whole = own ? own : m_control.form().font();
    const HFONT font = m_stage.fonts().of(whole.get());
    if (font == m_font) return;
    m_font = font;
    forgetRoom();
    send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void Piece::place(const Place& place) {
    if (place == m_place) return;
    m_place = place;
    ::SetWindowPos(m_window, nullptr, place.x, place.y, std::max(place.width, 0),
                   std::max(place.height, 0), SWP_NOZORDER | SWP_NOACTIVATE);
    ::InvalidateRect(m_window, nullptr, TRUE);
}

const Room& Piece::room() const {
    if (!m_room) m_room = measured(Measure(m_font));
    return *m_room;
}

void Piece::forgetRoom() {
    m_room.reset();
    m_stage.roomChanged();
}

}  // namespace wynconfig::native
