// The person who drives the real windows.
#include "views/win32/person/person.h"

#include <algorithm>

#include "platform/forms/named_control.h"
#include "views/win32/box_pieces.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/list_piece.h"
#include "views/win32/person/hands.h"
#include "views/win32/person/sight.h"
#include "views/win32/waiting.h"
#include "wynconfig/key_holder.h"

namespace wynconfig::native {

void Person::meet(FormWindow& window) {
    formCameUp(window.name());
    if (!window.live()) return;
    blame("the form " + window.name() + " was left open");
    window.giveUp();
}

void Person::answer(const MessageWindow& box, const MessageRequest& shown) {
    const int number = boxCameUp(shown);
    if (const HWND button = box.button(number)) {
        ::SendMessageW(button, BM_CLICK, 0, 0);
        return;
    }
    blame("the box \"" + shown.text + "\" has no button " + std::to_string(number));
    ::SendMessageW(box.window(), WM_COMMAND, IDCANCEL, 0);
}

void Person::pickPath(Browsing& dialog, const BrowseRequest& request) {
    const std::string path = browseCameUp(request);
    if (!path.empty()) {
        std::wstring wanted = toWide(path);
        std::replace(wanted.begin(), wanted.end(), L'/', L'\\');
        // Asked before, since the dialog tells of a path that is not there by a box of its own.
        const DWORD kind = ::GetFileAttributesW(wanted.c_str());
        const bool folder = (kind & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool fits = kind != INVALID_FILE_ATTRIBUTES && folder != request.files;
        if (fits) dialog.enter(wanted);
        if (!::IsWindowVisible(dialog.window())) return;
        blame("the browse dialog \"" + request.title + "\" does not take \"" + path + "\"");
    }
    dialog.cancel();
}

void Person::watch(Progress::Stage stage, const ProgressWindow* window) {
    const bool waits = WaitCursor::isShown();
    const bool isThere = window && ::IsWindowVisible(window->window());
    SeenProgress sign{stage, {}, {}, 0, 0};
    switch (stage) {
        case Progress::Stage::Begins:
            if (waits && !isThere) progressSeen(sign);
            return;
        case Progress::Stage::Lasts:
            if (!waits || !isThere) return;
            sign.title = fromWide(unembedded(textOf(window->window())));
            sign.text = fromWide(unembedded(textOf(window->text())));
            sign.done = static_cast<std::size_t>(::SendMessageW(window->bar(), PBM_GETPOS, 0, 0));
            sign.all =
                static_cast<std::size_t>(::SendMessageW(window->bar(), PBM_GETRANGE, FALSE, 0));
            return progressSeen(sign);
        case Progress::Stage::Ends:
            if (!waits && !isThere) progressSeen(sign);
            return;
    }
}

FormWindow& Person::top() const {
    FormWindow* window = m_screen.top();
    if (!window) throw UserError("there is no form on the screen");
    window->sync();
    if (!window->live()) return top();
    return *window;
}

FormWindow& Person::inHand() const {
    FormWindow& window = top();
    bringUp(window.window());
    return window;
}

Control& Person::there(std::string_view name) const {
    return namedControl(*top().form(), name);
}

Piece& Person::usable(std::string_view name, std::initializer_list<ControlKind> kinds) const {
    const Control& control = there(name);
    const FormWindow& window = inHand();
    Piece* piece = window.piece(control);
    if (!piece || !::IsWindowVisible(piece->window()))
        throw UserError(std::string(name) + " is hidden");
    if (!::IsWindowEnabled(piece->window())) throw UserError(std::string(name) + " is disabled");
    if (std::find(kinds.begin(), kinds.end(), control.kind()) == kinds.end())
        throw UserError("this can't be done with " + std::string(name));
    return *piece;
}

Piece& Person::pressable(std::string_view name) const {
    return usable(name, {ControlKind::Button, ControlKind::CheckBox, ControlKind::OptionButton});
}

std::string Person::formName() const {
    const FormWindow* window = m_screen.top();
    return window ? window->name() : std::string();
}

std::string Person::formTitle() const {
    return fromWide(unembedded(textOf(top().window())));
}

void Person::click(std::string_view name) {
    const Piece& piece = pressable(name);
    mouseClick(inHand(), piece.window());
}

void Person::bareClick(std::string_view name) {
    const HWND button = pressable(name).window();
    ::SendMessageW(::GetParent(button), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                   reinterpret_cast<LPARAM>(button));
}

void Person::pressEnter() {
    keyClick(inHand(), VK_RETURN);
}

void Person::pressEscape() {
    keyClick(inHand(), VK_ESCAPE);
}

void Person::pressDelete() {
    FormWindow& window = inHand();
    // One character goes, not a text that is selected since the dialog opened.
    const Control* const there = window.form()->focused();
    if (there && there->kind() == ControlKind::Edit)
        static_cast<EditPiece*>(window.piece(*there))->dropSelection();
    keyClick(window, VK_DELETE);
}

void Person::pressF2() {
    keyClick(inHand(), VK_F2);
}

void Person::pressTab() {
    keyClick(inHand(), VK_TAB);
}

void Person::pressMnemonic(std::string_view key) {
    FormWindow& window = inHand();
    const auto see = [&](const Control& control) { return look(window, control); };
    holderOf(window.form()->layout().body, key, see);
    pressWithAlt(window, toWide(key));
}

void Person::takeFocus(const Piece& piece) const {
    ::SetFocus(piece.window());
    // What that led to is on the screen before the next message of the mouse.
    if (FormWindow* window = m_screen.top()) window->sync();
}

void Person::focus(std::string_view name) {
    const Control& control = there(name);
    const Piece& piece = usable(name, {control.kind()});
    if (!takesFocus(control)) throw UserError(std::string(name) + " takes no focus");
    takeFocus(piece);
}

void Person::type(std::string_view name, const std::string& text) {
    const Piece& box = usable(name, {ControlKind::Edit});
    takeFocus(box);
    FormWindow& window = inHand();
    keyClick(window, 'A', true);
    if (text.empty())
        keyClick(window, VK_DELETE);
    else
        typeText(window, toWide(text));
    if (fromWide(textOf(box.window())) != text)
        throw UserError(std::string(name) + " does not take \"" + text + "\"");
}

void Person::setCaret(std::string_view name, std::size_t caret) {
    const HWND box = usable(name, {ControlKind::Edit}).window();
    takeFocus(usable(name, {ControlKind::Edit}));
    const std::size_t units = unitsBefore(textOf(box), caret);
    ::SendMessageW(box, EM_SETSEL, units, static_cast<LPARAM>(units));
}

POINT Person::reach(const ListPiece& list, const std::string& text) const {
    const auto find = [&] {
        const std::vector<std::string> rows = rowsIn(list.window());
        const auto found = std::find(rows.begin(), rows.end(), text);
        if (found != rows.end()) return static_cast<int>(found - rows.begin());
        throw UserError(std::string(list.control().name()) + " has no row \"" + text + "\"");
    };
    find();
    takeFocus(list);
    const int row = find();
    ::SendMessageW(list.window(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT place{};
    place.left = LVIR_LABEL;
    ::SendMessageW(list.window(), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
    constexpr LONG kIntoTheText = 6;
    return {place.left + kIntoTheText, (place.top + place.bottom) / 2};
}

void Person::pick(std::string_view name, const std::string& text) {
    const auto& list = static_cast<ListPiece&>(usable(name, {ControlKind::ListView}));
    const POINT place = reach(list, text);
    rowClick(inHand(), list.window(), place);
}

void Person::doubleClick(std::string_view name, const std::string& text) {
    pick(name, text);
    const auto& list = static_cast<ListPiece&>(usable(name, {ControlKind::ListView}));
    const POINT place = reach(list, text);
    rowDoubleClick(inHand(), list.window(), place);
}

void Person::typeAhead(std::string_view name, const std::string& letters) {
    const ControlKind kind = there(name).kind();
    Piece& piece = usable(name, {kind});
    if (kind != ControlKind::ListView && kind != ControlKind::ComboBox)
        throw UserError("nothing is found by letters in " + std::string(name));
    takeFocus(piece);
    if (kind == ControlKind::ListView)
        static_cast<ListPiece&>(piece).typing.stop();
    else
        static_cast<ComboPiece&>(piece).typing.stop();
    typeLetters(inHand(), toWide(letters));
    if (FormWindow* window = m_screen.top()) window->sync();
}

void Person::choose(std::string_view name, const std::string& text) {
    const Piece& piece = usable(name, {ControlKind::ComboBox});
    const HWND combo = piece.window();
    const std::vector<std::string> items = itemsIn(combo);
    const auto found = std::find(items.begin(), items.end(), text);
    if (found == items.end()) throw UserError(std::string(name) + " has no item \"" + text + "\"");
    takeFocus(piece);
    ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(found - items.begin()), 0);
    keyClick(inHand(), VK_RETURN);
}

void Person::changeTab(std::string_view name, int index) {
    const HWND tabs = usable(name, {ControlKind::Tabs}).window();
    RECT place{};
    if (!::SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(index),
                        reinterpret_cast<LPARAM>(&place)))
        throw UserError(std::string(name) + " has no tab " + std::to_string(index));
    mouseClick(inHand(), tabs, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void Person::resize(int width, int height) {
    inHand().pullTo(width, height);
}

void Person::closeByFrame() {
    ::SendMessageW(inHand().window(), WM_SYSCOMMAND, SC_CLOSE, 0);
}

Sight Person::see(std::string_view name) {
    const Control& control = there(name);
    return look(inHand(), control);
}

std::string Person::help(std::string_view name) {
    const Control& control = there(name);
    const FormWindow& window = inHand();
    const Piece* piece = window.piece(control);
    if (!piece || !::IsWindowVisible(piece->window()))
        throw UserError(std::string(name) + " is hidden");
    return fromWide(tipOf(piece->window(), window.tips()));
}

std::vector<std::string> Person::readHelp() {
    FormWindow& window = inHand();
    keyClick(window, VK_F1);
    if (!window.help().window()) return {};
    const std::string all = fromWide(textOf(window.help().text()));
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < all.size();) {
        const std::size_t end = std::min(all.find("\r\n", at), all.size());
        if (end > at) lines.push_back(all.substr(at, end - at));
        at = end + 2;
    }
    keyClickAt(window, window.help().text(), VK_ESCAPE);
    if (window.help().window()) throw UserError("Escape does not close the help");
    return lines;
}

}  // namespace wynconfig::native
