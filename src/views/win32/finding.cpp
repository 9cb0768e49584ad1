// What stands above the rows of a long list, and in place of those of an empty one.
#include "views/win32/finding.h"

#include <algorithm>
#include <string>

#include "views/win32/access.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/fonts.h"
#include "views/win32/module.h"
#include "wynconfig/view.h"

namespace wynconfig::native {

namespace {

HWND makeHidden(HWND parent, const wchar_t* name, DWORD style, DWORD extended = 0) {
    return ::CreateWindowExW(extended, name, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                             parent, nullptr, moduleHandle(), nullptr);
}

HWND makeNote(HWND parent) {
    return makeHidden(parent, WC_STATICW, SS_CENTER | SS_NOPREFIX | SS_EDITCONTROL);
}

void showWindow(HWND window, bool shown) {
    if (((::GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0) != shown)
        ::ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
}

void move(HWND window, const Place& place) {
    ::SetWindowPos(window, nullptr, place.x, place.y, std::max(place.width, 0),
                   std::max(place.height, 0), SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

FilterLine::FilterLine(HWND parent, bool mirrored)
    : m_window(
          makeHidden(parent, WC_EDITW, ES_AUTOHSCROLL | sideOfBox(mirrored), WS_EX_CLIENTEDGE)) {
    followDirection(m_window);
}

std::wstring FilterLine::text() const {
    return textOf(m_window);
}

void FilterLine::clear() const {
    showText(m_window, {});
}

bool FilterLine::isInReach() const {
    return ::IsWindowVisible(m_window) && ::IsWindowEnabled(m_window);
}

void FilterLine::show(bool up, bool seen, const std::wstring& rows) {
    if (up && !m_isUp) {
        const std::wstring word = toWide(viewWord("VIEW_FILTER"));
        const std::wstring hint = word + L" (Ctrl+F)";
        ::SendMessageW(m_window, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(hint.c_str()));
        setSpokenName(m_window, rows.empty() ? word : word + L": " + rows);
    }
    m_isUp = up;
    if (!up) clear();
    showWindow(m_window, up && seen);
}

void FilterLine::place(const Place& list, int height) const {
    move(m_window, {list.x, list.y, list.width, height});
}

void FilterLine::setFont(HFONT font) const {
    ::SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void FilterLine::setEnabled(bool enabled) const {
    ::EnableWindow(m_window, enabled ? TRUE : FALSE);
}

void FilterLine::begin() const {
    ::SetFocus(m_window);
    selectAll();
}

void FilterLine::selectAll() const {
    ::SendMessageW(m_window, EM_SETSEL, 0, -1);
}

EmptyNote::EmptyNote(HWND list)
    : m_list(list), m_onList(makeNote(list)), m_instead(makeNote(::GetParent(list))) {}

void EmptyNote::show(const std::wstring& words, bool isListThere, bool seen) {
    m_words = words;
    for (const HWND each : {m_onList, m_instead}) {
        const bool isIt = each == (isListThere ? m_onList : m_instead);
        showText(each, isIt ? words : std::wstring());
        showWindow(each, isIt && seen && !words.empty());
    }
    settle();
}

void EmptyNote::place(const Place& list, HFONT font) {
    m_place = list;
    m_font = font;
    for (const HWND each : {m_onList, m_instead})
        ::SendMessageW(each, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    settle();
}

/// In the middle, with some air around it.
void EmptyNote::settle() const {
    if (m_words.empty() || !m_font) return;
    const Measure measure(m_font);
    const int edge = measure.lineHeight();
    const auto settleIn = [&](HWND note, const Place& around) {
        const int width = std::max(around.width - 2 * edge, 1);
        const int height =
            static_cast<int>(measure.text(m_words, DT_NOPREFIX | DT_EDITCONTROL, width).cy);
        move(note, {around.x + edge, around.y + std::max(0, (around.height - height) / 2), width,
                    std::min(height, around.height)});
        ::InvalidateRect(note, nullptr, TRUE);
    };
    RECT list{};
    ::GetClientRect(m_list, &list);
    settleIn(m_onList, {0, 0, static_cast<int>(list.right), static_cast<int>(list.bottom)});
    settleIn(m_instead, m_place);
}

}  // namespace wynconfig::native
