// A list of rows, which are not in its window but given to it one by one as they come in sight.
#include "views/win32/list_piece.h"

#include <algorithm>
#include <utility>

#include "views/win32/convert.h"

namespace wynconfig::native {

namespace {

/// How many characters of a row there is room for, and how many are seen at the least; the same of
/// rows.
constexpr int kUsualRow = 22;
constexpr int kLeastRow = 18;
constexpr int kUsualRows = 10;
constexpr int kLeastRows = 8;

constexpr UINT kSelected = LVIS_SELECTED;
constexpr UINT kMarked = LVIS_FOCUSED;

int indexOf(std::size_t number) {
    return static_cast<int>(number) - 1;
}

}  // namespace

ListPiece::ListPiece(ListView& list, Stage& stage, const Standing& standing)
    : Piece(list, stage),
      m_list(list),
      m_headed(standing.labelledBy != nullptr),
      m_deliberate(standing.acts.deliberate) {
    make(standing.parent, WC_LISTVIEWW,
         WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
             LVS_NOSORTHEADER | LVS_NOCOLUMNHEADER,
         WS_EX_CLIENTEDGE);
    // Not every system draws in a buffer from right to left.
    const bool mirrored = (::GetWindowLongPtrW(window(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
    const DWORD look =
        LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | (mirrored ? 0 : LVS_EX_DOUBLEBUFFER);
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, look, static_cast<LPARAM>(look));
    LVCOLUMNW column{};
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

Room ListPiece::measured(const Measure& measure) const {
    const int hint = toPixels(m_widthHint, stage().dpi());
    const int frame = ::GetSystemMetrics(SM_CXVSCROLL) + scale(12);
    const auto heightOf = [&](int rows) {
        const LRESULT size = send(LVM_APPROXIMATEVIEWRECT, static_cast<WPARAM>(rows), -1);
        return std::max(static_cast<int>(HIWORD(size)), rows * measure.lineHeight()) + scale(4);
    };
    return {{measure.chars(kLeastRow), heightOf(kLeastRows)},
            {std::max(measure.chars(kUsualRow), hint) + frame, heightOf(kUsualRows)}};
}

void ListPiece::fitColumn() const {
    RECT client{};
    ::GetClientRect(window(), &client);
    if (send(LVM_GETCOLUMNWIDTH, 0) != client.right)
        send(LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(client.right, 0));
}

std::size_t ListPiece::marked() const {
    return static_cast<std::size_t>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) +
                                    1);
}

std::size_t ListPiece::selected() const {
    return static_cast<std::size_t>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) +
                                    1);
}

void ListPiece::showContent() {
    if (m_list.revision() != m_shownRevision) {
        m_shownRevision = m_list.revision();
        showHeading();
        showRows();
    }
    // While the mouse is down on a row, what counts is the pick to come.
    if (!m_pressing) showSelected(m_list.selectedNumber());
}

void ListPiece::showRows() {
    m_rows.clear();
    for (const ListRow& each : m_list.rows())
        m_rows.push_back({each.key, toWide(each.text), each.font});
    send(LVM_SETITEMCOUNT, m_rows.size(), LVSICF_NOSCROLL);
    // Rows that went may have left their states behind.
    if (m_rows.size() < selected()) select(0);
    fitColumn();
    ::InvalidateRect(window(), nullptr, TRUE);
}

void ListPiece::showHeading() {
    const std::vector<ListColumn>& columns = m_list.columns();
    std::wstring heading = columns.empty() ? std::wstring() : toWide(columns.front().text);
    const LONG_PTR style = ::GetWindowLongPtrW(window(), GWL_STYLE);
    const LONG_PTR headless = style | LVS_NOCOLUMNHEADER;
    const LONG_PTR wanted =
        m_headed || heading.empty() ? headless : headless & ~LONG_PTR{LVS_NOCOLUMNHEADER};
    if (wanted != style) ::SetWindowLongPtrW(window(), GWL_STYLE, wanted);
    const int hint = columns.empty() ? 0 : columns.front().width;
    if (hint != std::exchange(m_widthHint, hint) || wanted != style) forgetRoom();
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = heading.data();
    send(LVM_SETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

void ListPiece::showSelected(std::size_t number) {
    if (number == selected()) return;
    select(number);
    if (number > 0) mark(number);
}

void ListPiece::select(std::size_t number) const {
    LVITEMW item{};
    item.stateMask = kSelected;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    if (number == 0) return;
    item.state = kSelected;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(indexOf(number)), reinterpret_cast<LPARAM>(&item));
}

void ListPiece::mark(std::size_t number) const {
    LVITEMW item{};
    item.stateMask = item.state = kMarked;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(indexOf(number)), reinterpret_cast<LPARAM>(&item));
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(indexOf(number)), FALSE);
}

void ListPiece::pick(std::size_t number) {
    act([&](const UserInput& input) { input.pick(m_list, number); });
    // The window may have let the row go that the model keeps.
    stage().door()([this](const UserInput&) {
        if (m_list.revision() == m_shownRevision) stage().showLater(*this);
    });
}

void ListPiece::pickMarked() {
    const std::size_t number = marked();
    if (number == 0) return;
    m_moving = true;
    select(number);
    m_moving = false;
    pick(number);
}

void ListPiece::goTo(std::size_t number) {
    const bool wasSelected = selected() == number;
    m_moving = true;
    select(number);
    mark(number);
    m_moving = false;
    if (!wasSelected) pick(number);
}

LRESULT ListPiece::notified(NMHDR& what) {
    switch (what.code) {
        case LVN_GETDISPINFOW:
            tellText(reinterpret_cast<NMLVDISPINFOW&>(what));
            return 0;
        case LVN_ITEMCHANGED:
            changed(reinterpret_cast<const NMLISTVIEW&>(what));
            return 0;
        case NM_CLICK:
            clicked(reinterpret_cast<const NMITEMACTIVATE&>(what));
            return 0;
        case NM_DBLCLK:
            doubleClicked(reinterpret_cast<const NMITEMACTIVATE&>(what));
            return 0;
        case NM_CUSTOMDRAW:
            return paint(reinterpret_cast<NMLVCUSTOMDRAW&>(what));
        default:
            return 0;
    }
}

void ListPiece::tellText(NMLVDISPINFOW& wanted) const {
    const auto row = static_cast<std::size_t>(wanted.item.iItem);
    if (!(wanted.item.mask & LVIF_TEXT) || wanted.item.iItem < 0 || row >= m_rows.size()) return;
    ::lstrcpynW(wanted.item.pszText, m_rows[row].text.c_str(), wanted.item.cchTextMax);
}

/// Rows may have fonts of their own.
LRESULT ListPiece::paint(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    const std::size_t row = draw.nmcd.dwItemSpec;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || row >= m_rows.size() || !m_rows[row].font)
        return CDRF_DODEFAULT;
    ::SelectObject(draw.nmcd.hdc, stage().fonts().of(m_rows[row].font.get()));
    return CDRF_NEWFONT;
}

/// A selection that neither the mouse nor a key made: that of an assistive program.
void ListPiece::changed(const NMLISTVIEW& change) {
    if (stage().showing() || m_moving || m_pressing || !(change.uChanged & LVIF_STATE)) return;
    const bool was = (change.uOldState & kSelected) != 0;
    const bool is = (change.uNewState & kSelected) != 0;
    if (was == is) return;
    if (is && change.iItem >= 0)
        pick(static_cast<std::size_t>(change.iItem) + 1);
    else
        stage().showLater(*this);
}

void ListPiece::clicked(const NMITEMACTIVATE& click) {
    if (std::exchange(m_doubled, false)) return;
    m_pressing = false;
    if (click.iItem >= 0)
        pick(static_cast<std::size_t>(click.iItem) + 1);
    else
        stage().showLater(*this);
}

void ListPiece::doubleClicked(const NMITEMACTIVATE& click) {
    m_pressing = false;
    m_doubled = true;
    if (click.iItem < 0) return stage().showLater(*this);
    const KeyAct act = actOfDoubleClick(m_list.form(), m_list);
    if (act)
        stage().obey(act);
    else
        pick(static_cast<std::size_t>(click.iItem) + 1);
}

LRESULT ListPiece::received(UINT message, WPARAM w, LPARAM l) {
    std::string letter;
    switch (message) {
        case WM_CHAR:
            // Letters that lead nowhere must not go on to the list's own search.
            if (!typing.take(static_cast<wchar_t>(w), letter)) break;
            takeLetter(letter);
            return 0;
        case WM_KILLFOCUS:
            typing.stop();
            break;
        case WM_SETFOCUS:
            // However the focus came, there is a row for the space bar and Enter to pick.
            if (marked() == 0 && !m_rows.empty()) {
                m_moving = true;
                mark(1);
                m_moving = false;
            }
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP:
            return pressed(message, w, l);
        default:
            break;
    }
    return Piece::received(message, w, l);
}

/// While the button is down what is selected is no pick yet.
LRESULT ListPiece::pressed(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_LBUTTONDOWN) {
        // The box that the person comes from is left before anything else.
        if (inReach()) stage().takeFocusTo(*this);
        m_doubled = false;
    }
    if (message != WM_LBUTTONUP) m_pressing = true;
    const LRESULT result = Piece::received(message, w, l);
    if (message == WM_LBUTTONUP && std::exchange(m_pressing, false)) stage().showLater(*this);
    return result;
}

void ListPiece::takeLetter(const std::string& letter) {
    // Rows that are not on the screen yet can't be gone to.
    if (letter.empty() || !inReach() || m_list.revision() != m_shownRevision) return;
    if (const KeyAct act = actOfLetter(m_list.form(), m_list, typing.ahead(), letter))
        goTo(act.number);
}

std::size_t ListPiece::rowForKey(WPARAM key) const {
    const std::size_t count = m_rows.size();
    const std::size_t at = std::max<std::size_t>(marked(), 1);
    const auto page = static_cast<std::size_t>(std::max<LRESULT>(send(LVM_GETCOUNTPERPAGE) - 1, 1));
    switch (key) {
        case VK_UP:
            return std::max<std::size_t>(at - 1, 1);
        case VK_DOWN:
            return std::min(at + 1, count);
        case VK_PRIOR:
            return at > page ? at - page : 1;
        case VK_NEXT:
            return std::min(at + page, count);
        case VK_HOME:
            return 1;
        case VK_END:
            return count;
        default:
            return 0;
    }
}

bool ListPiece::takeKey(WPARAM key) {
    if (m_rows.empty()) return false;
    const bool ctrl = (::GetKeyState(VK_CONTROL) & 0x8000) != 0;
    if (key == VK_SPACE && !typing.ahead().begun()) {
        // As a click does, the space bar also picks the row that is selected already.
        pickMarked();
        return true;
    }
    const std::size_t row = rowForKey(key);
    if (row == 0) return false;
    if (m_deliberate || ctrl) {
        m_moving = true;
        mark(row);
        m_moving = false;
    } else if (key == VK_DOWN && selected() == 0 && marked() > 0) {
        // While none is selected, the first step down picks the row with the mark of the focus
        // instead of passing it.
        goTo(marked());
    } else {
        goTo(row);
    }
    return true;
}

}  // namespace wynconfig::native
