// How large the window of a form is, and where its controls stand.
#include <algorithm>

#include "views/win32/convert.h"
#include "views/win32/form_window.h"
#include "views/win32/module.h"
#include "views/win32/placing.h"
#include "views/win32/tab_pieces.h"

namespace wynconfig::native {

Room FormWindow::roomOf(const Control& control) const {
    return piece(control)->room();
}

Insets FormWindow::insetsOf(const Control& control) const {
    const Piece* around = piece(control);
    const int gap = scaled(8, m_dpi);
    if (control.kind() == ControlKind::Tabs) return static_cast<const TabsPiece*>(around)->insets();
    if (control.kind() == ControlKind::Container) return {gap, gap, gap, gap};
    // A frame without a title has no outline to stand apart from.
    if (::GetWindowTextLengthW(around->window()) == 0) return {};
    const int top = Measure(around->font()).lineHeight() + scaled(6, m_dpi);
    return {gap + scaled(2, m_dpi), top, gap + scaled(2, m_dpi), gap + scaled(1, m_dpi)};
}

void FormWindow::put(const Control& control, const Place& place) {
    Piece* moved = piece(control);
    Place own = place;
    if (control.kind() == ControlKind::ComboBox) {
        // The height of a combo box is that of its list, when it is open.
        constexpr int kRows = 10;
        own.height += kRows * Measure(moved->font()).lineHeight() + scaled(8, m_dpi);
    }
    moved->place(own);
}

Gaps FormWindow::gaps() const {
    return {scaled(7, m_dpi), scaled(3, m_dpi), scaled(10, m_dpi)};
}

/// Wide enough for the title, and comfortable.
int FormWindow::leastWidth() {
    constexpr int kComfortable = 45;  // characters
    return std::max(titleWidth(m_window, m_dpi),
                    Measure(m_fonts.of(m_form->font().get())).chars(kComfortable));
}

Extent FormWindow::leastSize(Arranging& arranging) {
    const Extent inside = arranging.room().least;
    const int margin = 2 * gaps().outer;
    return {std::max(inside.width + margin, leastWidth()), inside.height + margin};
}

Extent FormWindow::innerSize() const {
    RECT client{};
    ::GetClientRect(m_window, &client);
    return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

void FormWindow::setInnerSize(const Extent& size) {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(m_window, GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(m_window, GWL_EXSTYLE));
    const SIZE outer = outerSize({size.width, size.height}, style, extended, m_dpi);
    ::SetWindowPos(m_window, nullptr, 0, 0, outer.cx, outer.cy,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::applySize() {
    m_roomChanged = false;
    Arranging arranging(m_form->layout().body, *this, gaps());
    m_least = leastSize(arranging);
    const auto atLeast = [this](Extent size) -> Extent {
        return {std::max(size.width, m_least.width), std::max(size.height, m_least.height)};
    };
    const Extent asked{toPixels(m_form->width(), m_dpi), toPixels(m_form->height(), m_dpi)};
    const Extent comfortable = arranging.room().wanted;
    const int margin = 2 * gaps().outer;
    Extent size = innerSize();
    if (m_fixed) {
        // Never so small that something would be cut off.
        size = atLeast(asked);
    } else if (m_pulledTo.width == 0 || m_pulledTo.width != m_form->width() ||
               m_pulledTo.height != m_form->height()) {
        const bool own = asked.width == 0 || asked.height == 0;
        const RECT screen = workArea(m_window);
        size = own ? Extent{comfortable.width + margin, comfortable.height + margin} : asked;
        size = atLeast({std::min(size.width, static_cast<int>(screen.right - screen.left)),
                        std::min(size.height, static_cast<int>(screen.bottom - screen.top))});
        // Once it is on the screen it grows where it has to, and jumps at nothing else.
        if (own && ::IsWindowVisible(m_window)) size = atLeast(innerSize());
    } else {
        size = atLeast(size);
    }
    takeSize(size);
    arrangeNow();
}

void FormWindow::arrangeNow() {
    showBars();
    const Extent size = contentSize();
    const int margin = gaps().outer;
    Arranging(m_form->layout().body, *this, gaps())
        .arrange({margin - static_cast<int>(m_corner.x), margin - static_cast<int>(m_corner.y),
                  size.width - 2 * margin, size.height - 2 * margin});
    for (OptionSet& each : m_optionSets) each.settle();
}

void FormWindow::sized(int width, int height) {
    if (m_sizing || m_syncing || m_pieces.empty() || ::IsIconic(m_window) ||
        !::IsWindowVisible(m_window) || (width == m_ownSize.width && height == m_ownSize.height))
        return;
    if (!m_fixed) m_ownSize = {width, height};
    m_pulledTo = {toTwips(width, m_dpi), toTwips(height, m_dpi)};
    arrangeNow();
    m_door([this](const UserInput& input) {
        input.resize(*m_form, m_pulledTo.width, m_pulledTo.height);
    });
}

void FormWindow::pullTo(int width, int height) {
    setInnerSize({toPixels(width, m_dpi), toPixels(height, m_dpi)});
}

void FormWindow::centre(HWND above) const {
    RECT own{};
    ::GetWindowRect(m_window, &own);
    const POINT corner = centredOn(above, {own.right - own.left, own.bottom - own.top});
    ::SetWindowPos(m_window, nullptr, corner.x, corner.y, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace wynconfig::native
