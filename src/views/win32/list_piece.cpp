// A list of rows, which are not in its window but given to it one by one as they come in sight.
#include "views/win32/list_piece.h"

#include <algorithm>
#include <utility>

#include "platform/forms/empty_list.h"
#include "platform/text/text.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "wynconfig/form.h"

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

}  // namespace

ListPiece::ListPiece(ListView& list, Stage& stage, const Standing& standing)
    : Piece(list, stage),
      m_list(list),
      m_label(standing.labelledBy),
      m_acts(standing.acts),
      m_filter(standing.parent, stage.mirrored()) {
    make(standing.parent, WC_LISTVIEWW,
         WS_TABSTOP | WS_CLIPCHILDREN | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL |
             LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_NOCOLUMNHEADER,
         WS_EX_CLIENTEDGE);
    // Not every system draws in a buffer from right to left.
    const DWORD look =
        LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | (stage.mirrored() ? 0 : LVS_EX_DOUBLEBUFFER);
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, look, static_cast<LPARAM>(look));
    LVCOLUMNW column{};
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    m_note.emplace(window());
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
    return m_shown.numberAt(
        static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED)));
}

std::size_t ListPiece::selected() const {
    return m_shown.numberAt(
        static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)));
}

const std::string& ListPiece::keyAt(std::size_t place) const {
    return m_rows[m_shown.numberAt(static_cast<int>(place)) - 1].key;
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
    filterRows();
    // Rows that went may have left their states behind, and some may stand elsewhere now.
    if (selected() == 0 || m_shown.isFiltered()) select(0);
    fitColumn();
}

void ListPiece::showHeading() {
    const std::vector<ListColumn>& columns = m_list.columns();
    std::wstring heading = columns.empty() ? std::wstring() : toWide(columns.front().text);
    const LONG_PTR style = ::GetWindowLongPtrW(window(), GWL_STYLE);
    const LONG_PTR headless = style | LVS_NOCOLUMNHEADER;
    const LONG_PTR wanted =
        m_label || heading.empty() ? headless : headless & ~LONG_PTR{LVS_NOCOLUMNHEADER};
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
    reveal(number);
    select(number);
    if (number > 0) mark(number);
}

void ListPiece::select(std::size_t number) const {
    LVITEMW item{};
    item.stateMask = kSelected;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    const int place = m_shown.placeOf(number);
    if (place < 0) return;
    item.state = kSelected;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(place), reinterpret_cast<LPARAM>(&item));
}

void ListPiece::mark(std::size_t number) const {
    LVITEMW item{};
    item.stateMask = item.state = kMarked;
    const auto place = static_cast<WPARAM>(m_shown.placeOf(number));
    send(LVM_SETITEMSTATE, place, reinterpret_cast<LPARAM>(&item));
    send(LVM_ENSUREVISIBLE, place, FALSE);
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
    reveal(number);
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
    const std::size_t number = m_shown.numberAt(wanted.item.iItem);
    if (!(wanted.item.mask & LVIF_TEXT) || number == 0) return;
    const std::wstring text = embedded(m_rows[number - 1].text, stage().mirrored());
    ::lstrcpynW(wanted.item.pszText, text.c_str(), wanted.item.cchTextMax);
}

/// Rows may have fonts of their own.
LRESULT ListPiece::paint(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    const std::size_t number = m_shown.numberAt(static_cast<int>(draw.nmcd.dwItemSpec));
    if (number == 0 || !m_rows[number - 1].font) return CDRF_DODEFAULT;
    ::SelectObject(draw.nmcd.hdc, stage().fonts().of(m_rows[number - 1].font.get()));
    return CDRF_NEWFONT;
}

/// A selection that neither the mouse nor a key made: that of an assistive program.
void ListPiece::changed(const NMLISTVIEW& change) {
    if (stage().showing() || m_moving || m_pressing || !(change.uChanged & LVIF_STATE)) return;
    const bool was = (change.uOldState & kSelected) != 0;
    const bool is = (change.uNewState & kSelected) != 0;
    if (was == is) return;
    if (const std::size_t number = m_shown.numberAt(change.iItem); is && number > 0)
        pick(number);
    else
        stage().showLater(*this);
}

void ListPiece::clicked(const NMITEMACTIVATE& click) {
    if (std::exchange(m_doubled, false)) return;
    m_pressing = false;
    if (const std::size_t number = m_shown.numberAt(click.iItem))
        pick(number);
    else
        stage().showLater(*this);
}

void ListPiece::doubleClicked(const NMITEMACTIVATE& click) {
    m_pressing = false;
    m_doubled = true;
    const std::size_t number = m_shown.numberAt(click.iItem);
    if (number == 0) return stage().showLater(*this);
    const KeyAct act = actOfDoubleClick(m_list.form(), m_list);
    if (act)
        stage().obey(act);
    else
        pick(number);
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
            if (marked() == 0 && m_shown.count() > 0) {
                m_moving = true;
                mark(m_shown.numberAt(0));
                m_moving = false;
            }
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP:
            return pressed(message, w, l);
        case WM_CTLCOLORSTATIC:
            return colourOfNote(reinterpret_cast<HDC>(w));
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
    std::size_t number = 0;
    // The form knows all rows; letters find those that are seen.
    if (m_shown.isFiltered() && !m_acts.deliberate)
        number = rowAmongShown(m_shown, m_list, typing.ahead(), letter, selected());
    else if (const KeyAct act = actOfLetter(m_list.form(), m_list, typing.ahead(), letter))
        number = act.number;
    if (number > 0) goTo(number);
}

std::size_t ListPiece::rowForKey(WPARAM key) const {
    const int last = m_shown.count() - 1;
    const int at = std::max(m_shown.placeOf(marked()), 0);
    const int page = std::max(static_cast<int>(send(LVM_GETCOUNTPERPAGE)) - 1, 1);
    const auto number = [&](int place) { return m_shown.numberAt(std::clamp(place, 0, last)); };
    switch (key) {
        case VK_UP:
            return number(at - 1);
        case VK_DOWN:
            return number(at + 1);
        case VK_PRIOR:
            return number(at - page);
        case VK_NEXT:
            return number(at + page);
        case VK_HOME:
            return number(0);
        case VK_END:
            return number(last);
        default:
            return 0;
    }
}

bool ListPiece::takeKey(WPARAM key) {
    if (m_shown.count() == 0) return false;
    const bool ctrl = isDown(VK_CONTROL);
    if (key == VK_SPACE && !typing.ahead().begun()) {
        // As a click does, the space bar also picks the row that is selected already.
        pickMarked();
        return true;
    }
    const std::size_t row = rowForKey(key);
    if (row == 0) return false;
    if (m_acts.deliberate || ctrl) {
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

// What helps a person in the list.

bool ListPiece::matches(std::size_t number) const {
    return UCase(fromWide(m_rows[number - 1].text)).find(m_lookedFor) != std::string::npos;
}

void ListPiece::filterRows() {
    if (m_lookedFor.empty())
        m_shown.showAll(m_rows.size());
    else
        m_shown.showFound(m_rows.size(), [this](std::size_t number) { return matches(number); });
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(m_shown.count()), LVSICF_NOSCROLL);
    ::InvalidateRect(window(), nullptr, TRUE);
}

void ListPiece::reveal(std::size_t number) {
    if (m_shown.placeToReveal(number) < 0) return;
    m_shown.reveal(number);
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(m_shown.count()), LVSICF_NOSCROLL);
    ::InvalidateRect(window(), nullptr, TRUE);
}

void ListPiece::lookFor(const std::wstring& text) {
    const std::size_t kept = selected();
    followDirection(m_filter.window());
    m_lookedFor = UCase(fromWide(text));
    m_moving = true;
    select(0);
    filterRows();
    if (kept > 0)
        showSelected(kept);
    else
        send(LVM_ENSUREVISIBLE, 0, FALSE);
    m_moving = false;
    fitColumn();
    showHelps();
}

void ListPiece::commanded(UINT code) {
    if (code == EN_SETFOCUS)
        stage().focusCame(*this);
    else if (code == EN_CHANGE)
        lookFor(m_filter.text());
}

/// Goes into the list from above: to its first row with the text that is looked for, unless the
/// selected one has it.
void ListPiece::enter() {
    stage().takeFocusTo(*this);
    if (!m_shown.isFiltered() || (selected() > 0 && matches(selected()))) return;
    std::size_t found = 0;
    for (int place = 0; found == 0 && place < m_shown.count(); ++place) {
        if (matches(m_shown.numberAt(place))) found = m_shown.numberAt(place);
    }
    if (found == 0) return;
    if (!m_acts.deliberate) return goTo(found);
    m_moving = true;
    mark(found);
    m_moving = false;
}

bool ListPiece::takeFilterKey(WPARAM key) {
    switch (key) {
        case VK_ESCAPE:
            if (m_filter.text().empty()) return false;
            m_filter.clear();
            return true;
        case VK_DOWN:
        case VK_RETURN:
            enter();
            return true;
        // Keys that old boxes don't know:
        case VK_BACK:
            return isDown(VK_CONTROL);
        case 'A':
            if (isDown(VK_CONTROL)) m_filter.selectAll();
            return isDown(VK_CONTROL);
        default:
            return false;
    }
}

bool ListPiece::leaveUpwards(WPARAM key) {
    if (key != VK_UP || isDown(VK_CONTROL) || isDown(VK_SHIFT)) return false;
    if (!m_filter.isInReach() || m_shown.placeOf(marked()) > 0) return false;
    m_filter.begin();
    return true;
}

std::string ListPiece::emptyWords() const {
    if (m_rows.empty()) return wordsWhenEmpty(m_list.form().layout().body, m_acts.fill);
    return m_shown.count() == 0 ? viewWord("VIEW_NO_MATCH") : std::string();
}

void ListPiece::showHelps() {
    const bool isLong = m_rows.size() > kShortList && m_list.visible();
    const bool wasUp = m_filter.isUp();
    const bool seen = isPlaceSeen(m_list.form().layout().body, m_list);
    if (!isLong && m_filter.hasFocus()) ::SetFocus(window());
    m_filter.setEnabled(m_list.enabled());
    m_filter.show(isLong, seen, m_label ? toWidePlain(m_label->caption()) : std::wstring());
    if (isLong != wasUp) placeAll();
    m_note->show(toWide(emptyWords()), m_list.visible(), seen);
}

void ListPiece::place(const Place& place) {
    m_whole = place;
    placeAll();
}

void ListPiece::placeAll() {
    const int line = Measure(font()).lineHeight() + scale(8);
    const int above = m_filter.isUp() ? line + scale(4) : 0;
    const Place rows{m_whole.x, m_whole.y + above, m_whole.width, m_whole.height - above};
    m_filter.setFont(font());
    m_filter.place(m_whole, line);
    Piece::place(rows);
    m_note->place(rows, font());
    fitColumn();
}

LRESULT ListPiece::colourOfNote(HDC dc) const {
    const auto ground = static_cast<COLORREF>(send(LVM_GETBKCOLOR));
    ::SetTextColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    ::SetBkColor(dc, ground);
    ::SetDCBrushColor(dc, ground);
    return reinterpret_cast<LRESULT>(::GetStockObject(DC_BRUSH));
}

}  // namespace wynconfig::native
