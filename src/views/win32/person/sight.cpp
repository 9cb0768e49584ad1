// What a person sees of a control: read from its window, not from the control.
#include "views/win32/person/sight.h"

#include "views/win32/box_pieces.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/list_piece.h"
#include "views/win32/tab_pieces.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig::native {

namespace {

/// Texts of rows know no bound; what they are asked for into grows until it is enough.
std::wstring rowText(HWND list, int row) {
    for (std::size_t room = 512;; room *= 4) {
        std::wstring text(room, L'\0');
        LVITEMW item{};
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(room);
        const auto units = static_cast<std::size_t>(::SendMessageW(
            list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
        if (units + 1 >= room) continue;
        return item.pszText;
    }
}

void lookAt(const EditPiece& box, Sight& sight) {
    const std::wstring text = textOf(box.window());
    sight.text = fromWide(text);
    sight.caret = charsBefore(text, box.caretUnits());
}

void lookAt(const ListPiece& list, Sight& sight) {
    const std::vector<std::string> texts = rowsIn(list.window());
    for (std::size_t i = 0; i < texts.size(); ++i) sight.rows.push_back({list.keyAt(i), texts[i]});
    sight.selected = static_cast<std::size_t>(
        ::SendMessageW(list.window(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) + 1);
}

void lookAtCombo(HWND combo, Sight& sight) {
    for (const std::string& each : itemsIn(combo)) sight.rows.push_back({{}, each});
    sight.selected = static_cast<std::size_t>(::SendMessageW(combo, CB_GETCURSEL, 0, 0) + 1);
    sight.text = fromWide(unembedded(textOf(combo)));
}

void lookAt(const TabsPiece& tabs, Sight& sight) {
    const int count = static_cast<int>(::SendMessageW(tabs.window(), TCM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        const std::string caption = fromWide(unembedded(tabs.captionOf(i)));
        sight.rows.push_back({mnemonicOf(caption), plainCaption(caption)});
    }
    sight.selected =
        static_cast<std::size_t>(::SendMessageW(tabs.window(), TCM_GETCURSEL, 0, 0) + 1);
}

/// A label that reads no marks shows its text as it stands.
void lookAtCaption(HWND window, ControlKind kind, Sight& sight) {
    const std::string caption = fromWide(unembedded(textOf(window)));
    const bool noMarks =
        kind == ControlKind::Label && (::GetWindowLongPtrW(window, GWL_STYLE) & SS_NOPREFIX) != 0;
    sight.caption = noMarks ? caption : plainCaption(caption);
    sight.key = noMarks ? std::string() : mnemonicOf(caption);
    const bool turns = kind == ControlKind::CheckBox || kind == ControlKind::OptionButton;
    sight.value = turns && ::SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void lookAtContent(const Piece& piece, Sight& sight) {
    switch (piece.control().kind()) {
        case ControlKind::Edit:
            return lookAt(static_cast<const EditPiece&>(piece), sight);
        case ControlKind::ListView:
            return lookAt(static_cast<const ListPiece&>(piece), sight);
        case ControlKind::ComboBox:
            return lookAtCombo(piece.window(), sight);
        case ControlKind::Tabs:
            return lookAt(static_cast<const TabsPiece&>(piece), sight);
        case ControlKind::Container:
            return;
        default:
            return lookAtCaption(piece.window(), piece.control().kind(), sight);
    }
}

/// The ground that the box asks its window for when it is painted.
bool looksInactive(const FormWindow& window, HWND box) {
    const HDC dc = ::GetDC(box);
    const UINT question = ::IsWindowEnabled(box) ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC;
    const LRESULT brush = ::SendMessageW(::GetParent(box), question, reinterpret_cast<WPARAM>(dc),
                                         reinterpret_cast<LPARAM>(box));
    ::ReleaseDC(box, dc);
    LOGBRUSH ground{};
    ::GetObjectW(reinterpret_cast<HGDIOBJ>(brush), sizeof ground, &ground);
    return ground.lbColor == window.colours().boxColour(Background::InactiveBorder);
}

}  // namespace

std::vector<std::string> rowsIn(HWND list) {
    std::vector<std::string> rows;
    const int count = static_cast<int>(::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) rows.push_back(fromWide(unembedded(rowText(list, i))));
    return rows;
}

std::vector<std::string> itemsIn(HWND combo) {
    std::vector<std::string> items;
    const auto count = static_cast<WPARAM>(::SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        const auto units = static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, i, 0));
        std::wstring text(units + 1, L'\0');
        ::SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        items.push_back(fromWide(unembedded(text.c_str())));
    }
    return items;
}

Sight look(const FormWindow& window, const Control& control) {
    Sight sight;
    const Piece* piece = window.piece(control);
    if (!piece) {
        // It has no place in the window; of the caption bar the title can be read.
        sight.enabled = true;
        if (control.kind() == ControlKind::FormCaption)
            sight.caption = fromWide(unembedded(textOf(window.window())));
        return sight;
    }
    const HWND shown = piece->window();
    lookAtContent(*piece, sight);
    sight.focus = ::GetFocus() == shown;
    sight.enabled = ::IsWindowEnabled(shown) != FALSE;
    sight.visible = ::IsWindowVisible(shown) != FALSE;
    sight.tabStop = (::GetWindowLongPtrW(shown, GWL_STYLE) & WS_TABSTOP) != 0;
    if (control.kind() == ControlKind::Edit && looksInactive(window, shown))
        sight.background = Background::InactiveBorder;
    return sight;
}

}  // namespace wynconfig::native
