// The focus in the window of a form, and what its keys do.
#include <algorithm>
#include <optional>

#include "platform/text/text.h"
#include "views/win32/convert.h"
#include "views/win32/form_window.h"
#include "views/win32/list_piece.h"
#include "wynconfig/key_holder.h"

namespace wynconfig::native {

namespace {

std::optional<FormKey> formKey(WPARAM key) {
    const bool ctrl = isDown(VK_CONTROL);
    const bool shift = isDown(VK_SHIFT);
    switch (key) {
        case VK_RETURN:
            return FormKey::Enter;
        case VK_ESCAPE:
            return FormKey::Escape;
        case VK_DELETE:
            return FormKey::Delete;
        case VK_F1:
            return FormKey::F1;
        case VK_F2:
            return FormKey::F2;
        case VK_TAB:
            if (ctrl) return shift ? FormKey::PreviousPane : FormKey::NextPane;
            return shift ? FormKey::BackTab : FormKey::Tab;
        case VK_NEXT:
            if (ctrl) return FormKey::NextPane;
            break;
        case VK_PRIOR:
            if (ctrl) return FormKey::PreviousPane;
            break;
        default:
            break;
    }
    return std::nullopt;
}

}  // namespace

bool FormWindow::isActive() const {
    return ::IsWindowVisible(m_window) && ::IsWindowEnabled(m_window) &&
           ::GetActiveWindow() == m_window;
}

bool FormWindow::canFocus(const Piece* piece) const {
    return piece && piece->takesFocus() && ::IsWindowEnabled(piece->window()) &&
           isSeen(m_form->layout().body, piece->control());
}

/// Has the focus where the form has it; where it can't stay there, the form learns where it went.
void FormWindow::settleFocus() {
    if (!m_form || !isActive()) return;
    Control* wanted = m_form->focused();
    Piece* there = wanted ? piece(*wanted) : nullptr;
    if (!canFocus(there)) {
        const Piece* actual = pieceAt(::GetFocus());
        there = canFocus(actual) ? piece(actual->control())
                                 : stopAfter(tabOrder(m_form->layout().body), wanted, true);
        if (there) m_door([&](const UserInput& input) { input.focus(there->control()); });
    }
    // The line above a list is a part of it.
    if (m_form && there && pieceAt(::GetFocus()) != there) ::SetFocus(there->window());
}

void FormWindow::focusMoved(Control& control) {
    m_refusal.turnedTo(control);
    showRefused();
    if (m_syncing) return;
    sync();
    // Not to the control of the argument: a handler of the focus may have moved it on by now.
    settleFocus();
}

void FormWindow::takeFocusTo(Piece& piece) {
    m_door([&](const UserInput& input) { input.focus(piece.control()); });
    // Changes by what that led to come first: they may have switched the piece off.
    sync();
    if (m_form && isActive() && canFocus(&piece) && ::GetFocus() != piece.window())
        ::SetFocus(piece.window());
}

void FormWindow::focusCame(Piece& piece) {
    if (m_syncing) return;
    m_refusal.wentTo(piece.control());
    showRefused();
    reveal(piece);
    m_door([&](const UserInput& input) { input.focus(piece.control()); });
    if (m_form) markDefaultButton();
}

void FormWindow::focusFirst() {
    const Control* wanted = m_form->focused();
    if (wanted && canFocus(piece(*wanted))) return;
    std::vector<Control*> order = tabOrder(m_form->layout().body);
    std::erase_if(order, [](const Control* each) { return each->kind() == ControlKind::Tabs; });
    if (const Piece* first = stopAfter(order, nullptr, true))
        m_door([&](const UserInput& input) { input.focus(first->control()); });
}

Piece* FormWindow::stopAfter(const std::vector<Control*>& order, const Control* from,
                             bool forward) const {
    const auto stops = [this](const Control& control) {
        const Piece* there = piece(control);
        return canFocus(there) && control.tabStop();
    };
    const Control* next = nextStop(order, from, forward, stops);
    return next ? piece(*next) : nullptr;
}

/// The mark of the default button moves to the button that has the focus, and Enter with it.
void FormWindow::markDefaultButton() const {
    const Button* usual = m_form->layout().defaultButton;
    const Control* focused = m_form->focused();
    const bool onButton = focused && focused->kind() == ControlKind::Button;
    for (const auto& each : m_pieces) {
        if (each->control().kind() != ControlKind::Button) continue;
        const bool marked = usual && &each->control() == (onButton ? focused : usual);
        const LONG_PTR style = ::GetWindowLongPtrW(each->window(), GWL_STYLE);
        const LONG_PTR wanted = marked ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((style & BS_TYPEMASK) != wanted)
            ::SendMessageW(each->window(), BM_SETSTYLE, static_cast<WPARAM>(wanted), TRUE);
    }
}

/// What the form's keys are is decided before any window of it gets them: a list would turn its own
/// pages, and a button press itself.
bool FormWindow::takes(const MSG& message) {
    bool taken = false;
    m_door([&](const UserInput&) {
        constexpr LPARAM kWasDown = LPARAM{1} << 30;
        if (message.message == WM_KEYDOWN)
            taken = takeKey(message.wParam, (message.lParam & kWasDown) != 0);
        if (message.message != WM_SYSCHAR) return;
        const wchar_t unit = static_cast<wchar_t>(message.wParam);
        taken = followMark(UCase(fromWide({&unit, 1})));
    });
    return taken;
}

bool FormWindow::takeKey(WPARAM key, bool held) {
    Piece* focused = pieceAt(::GetFocus());
    if (focused && focused->wantsEnter() && (key == VK_RETURN || key == VK_ESCAPE)) return false;
    if (takeFindKey(key)) return true;
    auto* const list = dynamic_cast<ListPiece*>(focused);
    const bool inFilter = list && list->filter().hasFocus();
    if (inFilter && list->takeFilterKey(key)) return true;
    // These are the line's own there.
    if (inFilter && (key == VK_DELETE || key == VK_F2)) return false;
    if (const std::optional<FormKey> wanted = formKey(key)) {
        if (takeFormKey(*wanted)) return true;
    }
    if (!m_form || !focused || inFilter) return false;
    // A key that is held down only goes to the top.
    return (list && !held && list->leaveUpwards(key)) || focused->takeKey(key);
}

/// Ctrl and F go to the line above the list that has the focus, else to the first one.
bool FormWindow::takeFindKey(WPARAM key) const {
    if (key != 'F' || !isDown(VK_CONTROL) || isDown(VK_MENU)) return false;
    const ListPiece* found = nullptr;
    for (const ListPiece* each : m_lists) {
        if (!each->filter().isInReach()) continue;
        if (!found || each == pieceAt(::GetFocus())) found = each;
    }
    if (found) found->filter().begin();
    return found != nullptr;
}

bool FormWindow::takeFormKey(FormKey key) {
    if (key == FormKey::Tab || key == FormKey::BackTab) {
        // The bar of tabs is a stop as well.
        Piece* to =
            stopAfter(tabOrder(m_form->layout().body), m_form->focused(), key == FormKey::Tab);
        if (to) takeFocusTo(*to);
        return to != nullptr;
    }
    const auto* list = dynamic_cast<const ListPiece*>(pieceAt(::GetFocus()));
    const KeyAct act = actOfKey(*m_form, key, list ? list->marked() : 0);
    obey(act);
    return static_cast<bool>(act);
}

void FormWindow::obey(const KeyAct& act) {
    if (!act) return;
    if (act.kind == KeyAct::Kind::Help) return showHelp();
    const bool moves = act.takesFocus || act.kind == KeyAct::Kind::Focus;
    if (Piece* there = moves ? piece(*act.control) : nullptr) takeFocusTo(*there);
    m_door([&](const UserInput& input) { carryOut(act, input); });
}

void FormWindow::showHelp() {
    m_door([&](const UserInput&) {
        m_help.show(m_window, helpPage(*m_form, m_mirrored), m_fonts.of(m_form->font().get()),
                    m_mirrored);
    });
}

/// A key that is marked more than once only moves the focus around.
bool FormWindow::followMark(const std::string& key) {
    const std::vector<KeyHolder> holders = holdersOf(m_form->layout().body, key);
    if (holders.empty()) return false;
    if (holders.size() == 1) {
        obey(actOfMark(*m_form, holders.front()));
        return true;
    }
    std::vector<Control*> places;
    for (const KeyHolder& each : holders) {
        const Control& control = *each.control;
        const bool leads =
            control.kind() == ControlKind::Label || control.kind() == ControlKind::Frame;
        places.push_back(leads ? keyTarget(m_form->layout().body, control) : each.control);
    }
    const auto stops = [this](const Control& control) { return canFocus(piece(control)); };
    if (Control* next = nextStop(places, m_form->focused(), true, stops))
        takeFocusTo(*piece(*next));
    return true;
}

}  // namespace wynconfig::native
