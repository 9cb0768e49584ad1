// The window of one form: shows what the form's controls are, and runs until the form unloads.
#include "views/win32/form_window.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/forms/growing.h"
#include "views/win32/access.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/list_piece.h"
#include "views/win32/module.h"

namespace wynconfig::native {

namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtended = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr UINT kSync = WM_APP + 1;
constexpr UINT kCameUp = WM_APP + 2;
constexpr UINT kActEnded = WM_APP + 3;
// What older headers lack:
constexpr UINT kDpiChanged = 0x02E0;   // WM_DPICHANGED
constexpr UINT kWheelAcross = 0x020E;  // WM_MOUSEHWHEEL

const CaptionedControl* captioned(const Control* control) {
    return dynamic_cast<const CaptionedControl*>(control);
}

/// Sets a flag for as long as it lives.
class Raised {
  public:
    explicit Raised(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    ~Raised() { m_flag = m_before; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& m_flag;
    bool m_before;
};

}  // namespace

FormWindow::FormWindow(Form& form, UserInput input, HWND owner, bool mirrored)
    : m_form(&form),
      m_name(form.name()),
      m_owner(owner),
      // What waits for the next message has to look whether there is a failure.
      m_door(input, [this] { ::PostMessageW(m_window, WM_NULL, 0, 0); }),
      m_dpi(dpiOf(owner)),
      m_fonts(m_dpi),
      m_mirrored(mirrored),
      m_fixed(form.width() > 0 || form.height() > 0) {
    registerClasses();
    m_window = ::CreateWindowExW(kExtended | (mirrored ? WS_EX_LAYOUTRTL : 0), kFormClass, L"",
                                 kStyle | (m_fixed ? 0 : WS_THICKFRAME), CW_USEDEFAULT,
                                 CW_USEDEFAULT, 0, 0, owner, nullptr, moduleHandle(), nullptr);
    m_dpi = dpiOf(m_window);
    m_fonts.setDpi(m_dpi);
    m_tips = makeTips();
    build(form.layout().body, m_window);
    setOwner(m_window, this);
    form.observe(this);
    sync();
}

FormWindow::~FormWindow() {
    m_door.shut();
    if (m_form) m_form->observe(nullptr);
    setOwner(m_window, nullptr);
    m_pieces.clear();
    ::DestroyWindow(m_tips);
    ::DestroyWindow(m_window);
}

// Building.

void FormWindow::add(Control& control, Standing standing) {
    standing.isDefault = m_form->layout().defaultButton == &control;
    m_pieces.push_back(makePiece(control, *this, standing));
    Piece& made = *m_pieces.back();
    m_byControl[&control] = &made;
    m_byWindow[made.window()] = &made;
    if (auto* const list = dynamic_cast<ListPiece*>(&made)) {
        m_lists.push_back(list);
        m_byWindow[list->filter().window()] = list;
    }
    // Of such a button the caption is but an arrow.
    if (isBox(control) || standing.movesRows)
        m_spokenNames.push_back({&made, standing.movesRows, {}});
    const bool told = takesFocus(control) && control.kind() != ControlKind::Tabs;
    if (told && !standing.movesRows) setAskedTip(m_tips, made.window());
}

/// Windows stand in the order of the layout, labels before their boxes: by that Windows tells
/// assistive programs what a box is called.
void FormWindow::build(const Layout& node, HWND parent) {
    const auto buildChildren = [&](HWND around) {
        for (const Layout& each : node.children) build(each, around);
    };
    const bool attendantsFirst = node.kind == Layout::Kind::Titled && !node.behindBox;
    if (attendantsFirst) buildChildren(parent);
    if (node.label) add(*node.label, {.parent = parent, .labels = node.control});
    const bool isSet = OptionSet::isIn(node);
    if (isSet) m_optionSets.emplace_back(parent, node);
    if (node.control) {
        Standing standing{.parent = parent, .labelledBy = captioned(node.label), .acts = node.acts};
        standing.movesRows = node.into != nullptr;
        standing.chars = node.chars;
        add(*node.control, standing);
    }
    if (attendantsFirst) return;
    switch (node.kind) {
        case Layout::Kind::Group:
        case Layout::Kind::Tabs:
            buildChildren(parent);
            // They lie behind what stands in them.
            ::SetWindowPos(piece(*node.control)->window(), HWND_BOTTOM, 0, 0, 0, 0,
                           SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            return;
        case Layout::Kind::Pane:
            return buildChildren(m_pieces.back()->window());
        default:
            buildChildren(parent);
            if (isSet) gather(node);
            return;
    }
}

void FormWindow::gather(const Layout& field) {
    OptionSet& set = m_optionSets.back();
    set.take(*piece(*field.control));
    for (const Layout& each : field.children) {
        if (each.control && each.control->kind() == ControlKind::OptionButton)
            set.take(*piece(*each.control));
    }
}

Piece* FormWindow::piece(const Control& control) const {
    const auto found = m_byControl.find(&control);
    return found == m_byControl.end() ? nullptr : found->second;
}

Piece* FormWindow::pieceAt(HWND window) const {
    const auto found = m_byWindow.find(window);
    return found == m_byWindow.end() ? nullptr : found->second;
}

// Running.

void FormWindow::run(const std::function<void()>& cameUp) {
    focusFirst();
    sync();
    if (m_form) {
        m_door([this](const UserInput&) { applySize(); });
        centre(m_owner);
        m_modality.emplace(m_window, m_owner);
        ::ShowWindow(m_window, SW_SHOW);
        ::SetForegroundWindow(m_window);
        settleFocus();
        const Control* const first = m_form ? m_form->focused() : nullptr;
        if (Piece* there = first ? piece(*first) : nullptr) there->offerContent();
        m_cameUp = cameUp;
        ::PostMessageW(m_window, kCameUp, 0, 0);
    }
    std::optional<int> quit;
    while (m_form && !m_door.failure() && !quit) {
        MSG message;
        const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
        if (got > 0)
            handle(message);
        else
            quit = static_cast<int>(message.wParam);
    }
    // Something failed, or the host told the program to end: the form can't stay either way.
    m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
    leaveScreen();
    // Whoever waits further out is to end as well.
    if (quit) ::PostQuitMessage(*quit);
    if (m_door.failure()) std::rethrow_exception(m_door.failure());
}

void FormWindow::handle(MSG& message) {
    const bool ours = message.hwnd == m_window || ::IsChild(m_window, message.hwnd);
    if (ours && takes(message)) return;
    if (!ours && m_help.takes(message)) return;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

void FormWindow::leaveScreen() {
    m_help.close();
    m_modality.reset();
    ::ShowWindow(m_window, SW_HIDE);
    if (m_owner && ::IsWindowVisible(m_owner) && ::GetActiveWindow() != m_owner)
        ::SetActiveWindow(m_owner);
}

void FormWindow::unloaded() {
    m_door.shut();
    m_form = nullptr;
    // A window that waits for one above it goes when that has gone.
    if (::IsWindowEnabled(m_window)) leaveScreen();
    ::PostMessageW(m_window, WM_NULL, 0, 0);
}

void FormWindow::raise(bool topMost) const {
    ::SetWindowPos(m_window, topMost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FormWindow::giveUp() {
    m_door([this](const UserInput& input) {
        if (Button* cancel = m_form->layout().cancelButton) input.click(*cancel);
    });
    m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
}

// From the models to the screen.

void FormWindow::changed(Control* control) {
    if (!control || control->kind() == ControlKind::FormCaption)
        m_formChanged = true;
    else if (Piece* changed = piece(*control))
        changed->dirty = true;
    if (control && m_form->loaded()) m_refusal.changed(*control);
    showRefused();
    syncLater();
}

void FormWindow::markRefused() {
    m_refusal.told();
    ::PostMessageW(m_window, kActEnded, 0, 0);
}

void FormWindow::showRefused() {
    const Control* const marked = m_refusal.marked();
    if (marked == m_refused) return;
    for (const Control* each : {std::exchange(m_refused, marked), marked})
        if (each) showGround(*each);
}

void FormWindow::showGround(const Control& box) const {
    const HWND window = piece(box)->window();
    if (box.kind() == ControlKind::ListView) {
        const COLORREF ground =
            &box == m_refused ? m_colours.refusedColour() : ::GetSysColor(COLOR_WINDOW);
        ::SendMessageW(window, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(ground));
        ::SendMessageW(window, LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(ground));
    }
    ::InvalidateRect(window, nullptr, TRUE);
}

void FormWindow::syncLater() {
    if (!std::exchange(m_syncPending, true)) ::PostMessageW(m_window, kSync, 0, 0);
}

void FormWindow::showLater(Piece& piece) {
    piece.dirty = true;
    syncLater();
}

void FormWindow::sync() {
    m_syncPending = false;
    if (!m_form || m_syncing) return;
    m_door([this](const UserInput&) {
        const auto isDirty = [](const auto& each) { return each->dirty; };
        if (!m_formChanged && std::none_of(m_pieces.begin(), m_pieces.end(), isDirty)) return;
        {
            const Raised syncing(m_syncing);
            showAll();
        }
        settleFocus();
    });
}

void FormWindow::showAll() {
    const bool formChanged = std::exchange(m_formChanged, false);
    for (const auto& each : m_pieces) {
        if (!each->dirty) continue;
        // Hidden buttons leave no room.
        if (each->control().kind() == ControlKind::Button) m_roomChanged = true;
        each->show();
    }
    if (formChanged) showForm();
    for (ListPiece* each : m_lists) each->showHelps();
    if (formChanged || m_roomChanged) {
        showNames();
        applySize();
    }
    const Layout& body = m_form->layout().body;
    // First what comes, then what goes, so that the focus finds a place.
    for (const auto& each : m_pieces) {
        if (isSeen(body, each->control())) each->showVisible(true);
    }
    for (const auto& each : m_pieces) {
        if (!isSeen(body, each->control())) each->showVisible(false);
    }
    for (OptionSet& each : m_optionSets) each.settle();
    markDefaultButton();
}

void FormWindow::showForm() {
    showText(m_window, embeddedSentence(toWidePlain(m_form->title()), m_mirrored));
    for (const auto& each : m_pieces) each->renewFont();
}

void FormWindow::showNames() {
    const Layout& body = m_form->layout().body;
    for (OptionSet& each : m_optionSets) each.tellName();
    for (SpokenName& each : m_spokenNames) {
        const HWND window = each.piece->window();
        const std::wstring name = toWide(spokenName(body, each.piece->control(), m_mirrored));
        if (name == std::exchange(each.told, name)) continue;
        setSpokenName(window, name);
        if (each.isTip) setTip(m_tips, window, name);
    }
}

/// Help is asked for only here: the host's resource manager sees who asks.
void FormWindow::describe(Piece& piece) {
    std::wstring words = piece.ownDescription();
    if (words.empty()) words = toWide(m_form->help(&piece.control()));
    if (words != std::exchange(piece.describedAs, words))
        setSpokenDescription(piece.window(), words);
}

// Messages.

bool FormWindow::received(UINT message, WPARAM w, LPARAM l, LRESULT& result) noexcept {
    bool done = false;
    m_door([&](const UserInput&) { done = on(message, w, l, result); });
    return done;
}

bool FormWindow::on(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
    switch (message) {
        case kSync:
            sync();
            return true;
        case kCameUp:
            if (const auto cameUp = std::exchange(m_cameUp, {})) cameUp();
            return true;
        case kActEnded:
            m_refusal.actEnded();
            return true;
        case WM_CLOSE:
            m_door([this](const UserInput& input) { input.closeByFrame(*m_form); });
            return true;
        case WM_SETFOCUS:
            // As the window becomes the active one.
            if (!m_syncing) settleFocus();
            return true;
        case WM_SIZE:
            sized(LOWORD(l), HIWORD(l));
            return true;
        case WM_GETMINMAXINFO: {
            const Extent most = mostSize();
            const SIZE outer = outerSize(
                {std::min(m_least.width, most.width), std::min(m_least.height, most.height)},
                kStyle | WS_THICKFRAME, kExtended, m_dpi);
            if (!m_fixed) reinterpret_cast<MINMAXINFO*>(l)->ptMinTrackSize = {outer.cx, outer.cy};
            return true;
        }
        case WM_VSCROLL:
        case WM_HSCROLL:
            return l == 0 && moveBar(message == WM_VSCROLL ? SB_VERT : SB_HORZ, w);
        case WM_MOUSEWHEEL:
        case kWheelAcross:
            return turnWheel(message == WM_MOUSEWHEEL ? SB_VERT : SB_HORZ, w);
        case kDpiChanged:
            rescale(LOWORD(w), *reinterpret_cast<const RECT*>(l));
            return true;
        case WM_COMMAND:
            if (Piece* from = pieceAt(reinterpret_cast<HWND>(l))) from->commanded(HIWORD(w));
            return true;
        case WM_NOTIFY: {
            auto& what = *reinterpret_cast<NMHDR*>(l);
            if (what.hwndFrom == m_tips && what.code == TTN_GETDISPINFOW) {
                tellTip(reinterpret_cast<NMTTDISPINFOW&>(what));
                return true;
            }
            Piece* from = pieceAt(what.hwndFrom);
            if (from) result = from->notified(what);
            return from != nullptr;
        }
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            result = colourOf(message, reinterpret_cast<HDC>(w), reinterpret_cast<HWND>(l));
            return true;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            lookAnew();
            return false;
        default:
            return false;
    }
}

void FormWindow::tellTip(NMTTDISPINFOW& asked) {
    const Piece* const over = pieceAt(reinterpret_cast<HWND>(asked.hdr.idFrom));
    m_tip = m_form && over ? toWide(m_form->help(&over->control())) : std::wstring();
    asked.lpszText = m_tip.data();
}

LRESULT FormWindow::colourOf(UINT, HDC dc, HWND child) const {
    const Piece* piece = pieceAt(child);
    if (piece && child != piece->window()) {
        // The line above a list is a box like any other.
        ::SetBkColor(dc, m_colours.boxColour(Background::Window));
        return reinterpret_cast<LRESULT>(m_colours.box(Background::Window));
    }
    if (piece && piece->control().kind() == ControlKind::Edit) {
        ::SetBkColor(dc, &piece->control() == m_refused
                             ? m_colours.refusedColour()
                             : m_colours.boxColour(piece->control().background()));
        return reinterpret_cast<LRESULT>(groundOf(*piece));
    }
    const bool onPane = (piece && piece->control().kind() == ControlKind::Container) ||
                        ::GetParent(child) != m_window;
    ::SetBkMode(dc, TRANSPARENT);
    return reinterpret_cast<LRESULT>(onPane ? m_colours.pane() : m_colours.window());
}

HBRUSH FormWindow::groundOf(const Piece& piece) const {
    return &piece.control() == m_refused ? m_colours.refused()
                                         : m_colours.box(piece.control().background());
}

void FormWindow::lookAnew() {
    m_colours.renew();
    if (m_refused) showGround(*m_refused);
    for (const auto& each : m_pieces) each->dirty = true;
    m_formChanged = true;
    syncLater();
    ::InvalidateRect(m_window, nullptr, TRUE);
}

void FormWindow::rescale(int dpi, const RECT& suggested) {
    m_dpi = dpi;
    m_fonts.setDpi(dpi);
    {
        const Raised sizing(m_sizing);
        ::SetWindowPos(m_window, nullptr, suggested.left, suggested.top,
                       suggested.right - suggested.left, suggested.bottom - suggested.top,
                       SWP_NOZORDER | SWP_NOACTIVATE);
    }
    m_ownSize = {};
    m_pulledTo = {};
    lookAnew();
    sync();
}

}  // namespace wynconfig::native
