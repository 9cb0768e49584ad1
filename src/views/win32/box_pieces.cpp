// Boxes to type and to choose in.
#include "views/win32/box_pieces.h"

#include <algorithm>

#include "views/win32/convert.h"
#include "views/win32/direction.h"

namespace wynconfig::native {

namespace {

/// How many characters a box makes room for, and how many are seen at the least.
constexpr int kUsualText = 25;
constexpr int kLeastText = 11;
constexpr int kUsualChoice = 24;
constexpr int kLeastChoice = 14;
/// How many items an open drop-down list shows; the others scroll.
constexpr WPARAM kMostChoices = 15;

/// Whether a message to a box may move its caret.
bool mayMoveCaret(UINT message) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_CHAR:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_MOUSEMOVE:
        case WM_COMMAND:
        case WM_CONTEXTMENU:
        case WM_IME_CHAR:
        case WM_IME_COMPOSITION:
        case WM_SETTEXT:
        case WM_CUT:
        case WM_PASTE:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case EM_SETSEL:
        case EM_REPLACESEL:
            return true;
        default:
            return false;
    }
}

}  // namespace

EditPiece::EditPiece(Edit& edit, Stage& stage, const Standing& standing)
    : Piece(edit, stage), m_edit(edit), m_chars(standing.chars) {
    make(standing.parent, WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL | sideOfBox(stage.mirrored()),
         WS_EX_CLIENTEDGE);
    send(EM_SETLIMITTEXT, 0x7FFFFFFE);
    followDirection(window());
}

Room EditPiece::measured(const Measure& measure) const {
    const int frame = scale(8);
    const int height = measure.lineHeight() + frame;
    // The caret stands behind what was typed.
    const int wanted = m_chars > 0 ? m_chars + 1 : kUsualText;
    // One for few characters is never wider than that, and so never narrower either.
    const int least = wanted < kUsualText ? wanted : kLeastText;
    return {{measure.chars(least) + frame, height}, {measure.chars(wanted) + frame, height}};
}

std::size_t EditPiece::caretUnits() const {
    DWORD start = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start));
    return start;
}

std::size_t EditPiece::caret() const {
    return charsBefore(textOf(window()), caretUnits());
}

void EditPiece::commanded(UINT code) {
    if (code != EN_CHANGE) return;
    followDirection(window());
    if (!stage().showing()) reportText();
}

void EditPiece::reportText() {
    const std::wstring text = textOf(window());
    const std::size_t units = caretUnits();
    if (isHalfBefore(text, units)) return;
    m_shown = fromWide(text);
    m_reporting = true;
    act([this, shown = m_shown, caret = charsBefore(text, units)](const UserInput& input) {
        m_reporting = false;
        input.type(m_edit, shown, caret);
    });
    m_reporting = false;
    stage().showLater(*this);
}

void EditPiece::reportCaret() {
    stage().door()([this](const UserInput& input) {
        // A box that is switched off has the caret that code gave it.
        if (caret() != m_edit.caret() && m_edit.enabled()) input.moveCaret(m_edit, caret());
    });
}

/// A caret that code has set stays where it is. For the model it is where the selection starts.
void EditPiece::offerContent() {
    if (m_edit.caret() == 0) send(EM_SETSEL, 0, -1);
}

void EditPiece::dropSelection() {
    const std::size_t start = caretUnits();
    send(EM_SETSEL, start, static_cast<LPARAM>(start));
}

void EditPiece::showContent() {
    // What the person typed counts, also while the box that they come from is left.
    if (m_reporting) return;
    if (m_edit.text() != m_shown) {
        m_shown = m_edit.text();
        ::SetWindowTextW(window(), toWide(m_shown).c_str());
    }
    if (caret() == m_edit.caret()) return;
    const std::size_t units = unitsBefore(textOf(window()), m_edit.caret());
    send(EM_SETSEL, units, static_cast<LPARAM>(units));
    send(EM_SCROLLCARET);
}

LRESULT EditPiece::received(UINT message, WPARAM w, LPARAM l) {
    if (takeTyped(message, w)) return 0;
    const LRESULT result = Piece::received(message, w, l);
    if (mayMoveCaret(message) && !stage().showing() &&
        !isHalfBefore(textOf(window()), caretUnits()))
        reportCaret();
    return result;
}

/// Keys that old boxes don't know, or deal with by halves of characters.
bool EditPiece::takeTyped(UINT message, WPARAM w) {
    constexpr WPARAM kCtrlBackspace = 0x7F;
    if (message == WM_KEYDOWN && w == 'A' && isDown(VK_CONTROL) && !isDown(VK_MENU)) {
        ::SendMessageW(window(), EM_SETSEL, 0, -1);
        return true;
    }
    if (message == WM_CHAR && (w == kCtrlBackspace || w == 1)) return true;
    if (message == WM_KEYDOWN && w == VK_DELETE && !isDown(VK_SHIFT)) selectPair(true);
    if (message == WM_CHAR && w == VK_BACK) selectPair(false);
    return false;
}

void EditPiece::selectPair(bool behindCaret) {
    DWORD start = 0;
    DWORD end = 0;
    send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    if (start != end || (!behindCaret && start < 2)) return;
    const DWORD first = behindCaret ? start : start - 2;
    if (isPair(textOf(window()), first)) passOn(EM_SETSEL, first, static_cast<LPARAM>(first) + 2);
}

ComboPiece::ComboPiece(ComboBox& combo, Stage& stage, const Standing& standing)
    : Piece(combo, stage), m_combo(combo) {
    make(standing.parent, WC_COMBOBOXW, WS_TABSTOP | CBS_DROPDOWNLIST | WS_VSCROLL);
    send(CB_SETMINVISIBLE, kMostChoices);
}

Room ComboPiece::measured(const Measure& measure) const {
    RECT closed{};
    ::GetWindowRect(window(), &closed);
    const int height =
        std::max(static_cast<int>(closed.bottom - closed.top), measure.lineHeight() + scale(8));
    const int arrow = ::GetSystemMetrics(SM_CXVSCROLL) + scale(8);
    return {{measure.chars(kLeastChoice) + arrow, height},
            {measure.chars(kUsualChoice) + arrow, height}};
}

void ComboPiece::commanded(UINT code) {
    if (stage().showing()) return;
    if (code == CBN_CLOSEUP || (code == CBN_SELCHANGE && !isOpen())) reportChoice();
}

void ComboPiece::reportChoice() {
    const int index = static_cast<int>(send(CB_GETCURSEL));
    if (index == m_combo.selectedIndex() && m_combo.revision() == m_shownRevision) return;
    // The person chooses one of the items that are on the screen.
    if (index >= 0 && m_combo.revision() == m_shownRevision)
        act([&](const UserInput& input) { input.choose(m_combo, index); });
    else
        stage().showLater(*this);
}

LRESULT ComboPiece::received(UINT message, WPARAM w, LPARAM l) {
    std::string letter;
    if (message != WM_CHAR || !typing.take(static_cast<wchar_t>(w), letter)) {
        if (message == WM_KILLFOCUS) typing.stop();
        return Piece::received(message, w, l);
    }
    if (!letter.empty() && inReach()) takeLetter(letter);
    return 0;
}

void ComboPiece::takeLetter(const std::string& letter) {
    if (!isOpen())
        return stage().obey(actOfLetter(m_combo.form(), m_combo, typing.ahead(), letter));
    // Items that are not on the screen yet can't be gone to.
    if (m_combo.revision() != m_shownRevision) return;
    const std::vector<std::string>& items = m_combo.items();
    const auto textOf = [&](std::size_t item) -> std::string_view { return items[item - 1]; };
    const auto current = static_cast<std::size_t>(send(CB_GETCURSEL) + 1);
    const std::size_t found = typing.ahead().next(letter, items.size(), textOf, current);
    if (found > 0) send(CB_SETCURSEL, found - 1);
}

/// The room for thousands of items is made at once.
void ComboPiece::fill() {
    constexpr LPARAM kUsualBytes = 64;
    const std::vector<std::string>& items = m_combo.items();
    send(CB_RESETCONTENT);
    send(CB_INITSTORAGE, items.size(), static_cast<LPARAM>(items.size()) * kUsualBytes);
    for (const std::string& each : items)
        send(CB_ADDSTRING, 0,
             reinterpret_cast<LPARAM>(embedded(toWide(each), stage().mirrored()).c_str()));
}

void ComboPiece::showContent() {
    if (m_combo.revision() != m_shownRevision) {
        m_shownRevision = m_combo.revision();
        fill();
    }
    if (static_cast<int>(send(CB_GETCURSEL)) != m_combo.selectedIndex())
        send(CB_SETCURSEL, static_cast<WPARAM>(m_combo.selectedIndex()));
}

}  // namespace wynconfig::native
