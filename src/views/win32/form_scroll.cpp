// A form that is larger than the screen: its window is not, and has bars by which the form is moved
// about. What gets the focus comes into sight by itself.
#include <algorithm>
#include <utility>

#include "views/win32/convert.h"
#include "views/win32/form_window.h"
#include "views/win32/module.h"

namespace wynconfig::native {

Extent FormWindow::mostSize() const {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(m_window, GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(m_window, GWL_EXSTYLE));
    const SIZE frame = outerSize({0, 0}, style, extended, m_dpi);
    const RECT screen = workArea(m_window);
    return {static_cast<int>(screen.right - screen.left - frame.cx),
            static_cast<int>(screen.bottom - screen.top - frame.cy)};
}

/// The room that the controls share: all of the window, or more where they need more.
Extent FormWindow::contentSize() const {
    const Extent inner = innerSize();
    return {std::max(inner.width, m_least.width), std::max(inner.height, m_least.height)};
}

/// Gives the window a size, as far as the screen has room for it, and for the bar that goes with
/// what it has not.
void FormWindow::takeSize(Extent size) {
    const Extent most = mostSize();
    if (size.height > most.height) size.width += ::GetSystemMetrics(SM_CXVSCROLL);
    if (size.width > most.width) size.height += ::GetSystemMetrics(SM_CYHSCROLL);
    size = {std::min(size.width, most.width), std::min(size.height, most.height)};
    m_sizing = true;
    setInnerSize(size);
    showBars();
    m_sizing = false;
    m_ownSize = innerSize();
}

void FormWindow::showBars() {
    const bool wasSizing = std::exchange(m_sizing, true);
    // A bar takes some of the room that the other one is for.
    for (int pass = 0; pass < 2; ++pass) {
        const Extent inner = innerSize();
        const Extent content = contentSize();
        const auto show = [&](int bar, int length, int page, LONG& corner) {
            corner = std::clamp<LONG>(corner, 0, length - page);
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
            info.nMax = length - 1;
            info.nPage = static_cast<UINT>(page);
            info.nPos = static_cast<int>(corner);
            ::SetScrollInfo(m_window, bar, &info, TRUE);
        };
        show(SB_HORZ, content.width, inner.width, m_corner.x);
        show(SB_VERT, content.height, inner.height, m_corner.y);
    }
    m_sizing = wasSizing;
}

void FormWindow::scrollTo(POINT corner) {
    const Extent inner = innerSize();
    const Extent content = contentSize();
    corner.x = std::clamp<LONG>(corner.x, 0, content.width - inner.width);
    corner.y = std::clamp<LONG>(corner.y, 0, content.height - inner.height);
    if (corner.x == m_corner.x && corner.y == m_corner.y) return;
    m_corner = corner;
    arrangeNow();
}

bool FormWindow::moveBar(int bar, WPARAM w) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (!::GetScrollInfo(m_window, bar, &info)) return false;
    const int line = Measure(m_fonts.of(m_form->font().get())).lineHeight();
    const int page = static_cast<int>(info.nPage);
    int place = info.nPos;
    switch (LOWORD(w)) {
        case SB_TOP:
            place = info.nMin;
            break;
        case SB_BOTTOM:
            place = info.nMax;
            break;
        case SB_LINEUP:
            place -= line;
            break;
        case SB_LINEDOWN:
            place += line;
            break;
        case SB_PAGEUP:
            place -= page;
            break;
        case SB_PAGEDOWN:
            place += page;
            break;
        case SB_THUMBTRACK:
            place = info.nTrackPos;
            break;
        default:
            return true;
    }
    POINT corner = m_corner;
    (bar == SB_VERT ? corner.y : corner.x) = place;
    scrollTo(corner);
    return true;
}

bool FormWindow::turnWheel(int bar, WPARAM w) {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(m_window, GWL_STYLE));
    if (!(style & (bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL))) return false;
    constexpr int kLines = 3;
    const int line = Measure(m_fonts.of(m_form->font().get())).lineHeight();
    const int turned = static_cast<short>(HIWORD(w)) * kLines * line / WHEEL_DELTA;
    POINT corner = m_corner;
    // Away from the person is up, but to the right across.
    if (bar == SB_VERT)
        corner.y -= turned;
    else
        corner.x += turned;
    scrollTo(corner);
    return true;
}

void FormWindow::reveal(const Piece& piece) {
    const Extent inner = innerSize();
    if (inner.width >= m_least.width && inner.height >= m_least.height) return;
    RECT there{};
    ::GetWindowRect(pieceAt(::GetFocus()) == &piece ? ::GetFocus() : piece.window(), &there);
    ::MapWindowPoints(nullptr, m_window, reinterpret_cast<POINT*>(&there), 2);
    // In a mirrored window its sides are the other way round.
    const auto [left, right] = std::minmax(there.left, there.right);
    const int gap = gaps().outer;
    const auto moved = [gap](LONG from, LONG to, LONG length) {
        if (from < gap) return from - gap;
        return std::max<LONG>(0, std::min(to + gap - length, from - gap));
    };
    scrollTo({m_corner.x + moved(left, right, inner.width),
              m_corner.y + moved(there.top, there.bottom, inner.height)});
}

}  // namespace wynconfig::native
