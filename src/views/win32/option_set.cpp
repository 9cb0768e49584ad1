// What options that stand together are for assistive programs.
#include "views/win32/option_set.h"

#include <algorithm>
#include <utility>

#include "views/win32/access.h"
#include "views/win32/convert.h"
#include "views/win32/module.h"
#include "views/win32/outline.h"
#include "wynconfig/view.h"

namespace wynconfig::native {

namespace {

Place around(const Place& one, const Place& other) {
    const int x = std::min(one.x, other.x);
    const int y = std::min(one.y, other.y);
    return {x, y, std::max(one.x + one.width, other.x + other.width) - x,
            std::max(one.y + one.height, other.y + other.height) - y};
}

}  // namespace

bool OptionSet::isIn(const Layout& node) {
    return node.kind == Layout::Kind::Field && !node.children.empty() &&
           node.control->kind() == ControlKind::OptionButton;
}

OptionSet::OptionSet(HWND parent, const Layout& field)
    : m_window(::CreateWindowExW(WS_EX_TRANSPARENT, WC_BUTTONW, L"",
                                 WS_CHILD | WS_CLIPSIBLINGS | BS_GROUPBOX, 0, 0, 0, 0, parent,
                                 nullptr, moduleHandle(), nullptr)),
      m_label(dynamic_cast<const CaptionedControl*>(field.label)),
      m_word(field.spoken) {
    hideOutline(m_window);
}

void OptionSet::settle() {
    bool isThere = false;
    Place place = m_options.front()->placed();
    for (const Piece* each : m_options) {
        place = around(place, each->placed());
        isThere = isThere || (::GetWindowLongPtrW(each->window(), GWL_STYLE) & WS_VISIBLE) != 0;
    }
    if (place == m_place && isThere == m_isThere) return;
    m_place = place;
    m_isThere = isThere;
    ::SetWindowPos(m_window, nullptr, place.x, place.y, place.width, place.height,
                   SWP_NOZORDER | SWP_NOACTIVATE | (isThere ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void OptionSet::tellName() {
    const std::wstring name =
        m_label ? toWidePlain(m_label->caption()) : toWide(viewWord(std::string(m_word)));
    if (name != std::exchange(m_told, name)) setSpokenName(m_window, name);
}

}  // namespace wynconfig::native
