// The tabs, and the panes that lie behind them.
#include "views/win32/tab_pieces.h"

#include <array>

#include "views/win32/convert.h"
#include "views/win32/direction.h"

namespace wynconfig::native {

TabsPiece::TabsPiece(Tabs& tabs, Stage& stage, const Standing& standing)
    : Piece(tabs, stage), m_tabs(tabs) {
    make(standing.parent, WC_TABCONTROLW, WS_TABSTOP | TCS_FOCUSNEVER);
}

LRESULT TabsPiece::notified(NMHDR& what) {
    if (what.code != TCN_SELCHANGE || stage().showing()) return 0;
    const int index = static_cast<int>(send(TCM_GETCURSEL));
    actInPlace([&](const UserInput& input) { input.changeTab(m_tabs, index); });
    stage().showLater(*this);
    return 0;
}

Room TabsPiece::measured(const Measure&) const {
    RECT last{};
    send(TCM_GETITEMRECT, static_cast<WPARAM>(send(TCM_GETITEMCOUNT) - 1),
         reinterpret_cast<LPARAM>(&last));
    const Extent bar{static_cast<int>(last.right) + scale(8), static_cast<int>(last.bottom)};
    return {bar, bar};
}

Insets TabsPiece::insets() const {
    constexpr int kAny = 1000;
    RECT page{0, 0, kAny, kAny};
    send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
    return {static_cast<int>(page.left), static_cast<int>(page.top),
            kAny - static_cast<int>(page.right), kAny - static_cast<int>(page.bottom)};
}

std::wstring TabsPiece::captionOf(int index) const {
    std::array<wchar_t, 512> text{};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    send(TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

void TabsPiece::showContent() {
    const int there = static_cast<int>(send(TCM_GETITEMCOUNT));
    for (int i = 0; i < m_tabs.count(); ++i) {
        std::wstring caption =
            embeddedSentence(toWideCaption(m_tabs.caption(i)), stage().mirrored());
        if (i < there && captionOf(i) == caption) continue;
        forgetRoom();
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        send(i < there ? TCM_SETITEMW : TCM_INSERTITEMW, static_cast<WPARAM>(i),
             reinterpret_cast<LPARAM>(&item));
    }
    if (static_cast<int>(send(TCM_GETCURSEL)) != m_tabs.tab())
        send(TCM_SETCURSEL, static_cast<WPARAM>(m_tabs.tab()));
}

PanePiece::PanePiece(Container& container, Stage& stage, const Standing& standing,
                     const wchar_t* windowClass)
    : Piece(container, stage) {
    make(standing.parent, windowClass, 0, WS_EX_CONTROLPARENT);
}

}  // namespace wynconfig::native
