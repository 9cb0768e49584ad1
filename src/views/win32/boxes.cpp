// Message boxes: dialogs of Windows' own class, so that assistive programs read them out, with the
// captions and the font that are asked for.
#include "views/win32/boxes.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "views/win32/access.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/fonts.h"
#include "views/win32/module.h"
#include "views/win32/placing.h"
#include "wynconfig/form.h"

namespace wynconfig::native {

namespace {

constexpr UINT kBoxCameUp = WM_APP + 1;
constexpr int kButtonsOfStyle = 0xF;
/// The widest column of text in a box, in characters.
constexpr int kWidestText = 64;
constexpr int kTextId = 0xFFFF;
constexpr int kIconId = 0xFFFE;
constexpr DWORD kBoxStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;

bool asksYesNo(int style) {
    return (style & kButtonsOfStyle) == boxstyle::YesNo;
}

/// The text as it is shown: without the line ends behind it.
std::wstring shownText(const std::string& text) {
    std::wstring shown = toWide(text);
    while (!shown.empty() && (shown.back() == L'\n' || shown.back() == L'\r')) shown.pop_back();
    return shown;
}

/// The caption that Windows itself has on a button, in the user's language.
std::wstring ownCaption(int number) {
    constexpr UINT kOk = 800;
    constexpr UINT kYes = 805;
    constexpr UINT kNo = 806;
    const HMODULE system = ::GetModuleHandleW(L"user32.dll");
    wchar_t caption[64] = L"";
    const UINT text = number == answer::Yes ? kYes : number == answer::No ? kNo : kOk;
    if (::LoadStringW(system, text, caption, 64) > 0) return caption;
    return number == answer::Yes ? L"&Yes" : number == answer::No ? L"&No" : L"OK";
}

struct BoxButton {
    int number;
    std::wstring caption;
};

std::vector<BoxButton> buttonsOf(const MessageRequest& box) {
    if (asksYesNo(box.style))
        return {{answer::Yes, ownCaption(answer::Yes)}, {answer::No, ownCaption(answer::No)}};
    return {{answer::Ok,
             box.okCaption.empty() ? ownCaption(answer::Ok) : toWideCaption(box.okCaption)}};
}

/// Fills a box with its text, its icon and its buttons.
class BoxBuilder {
  public:
    BoxBuilder(HWND box, HFONT font, const MessageRequest& wanted, bool mirrored)
        : m_box(box),
          m_font(font),
          m_wanted(wanted),
          m_mirrored(mirrored),
          m_measure(font),
          m_dpi(dpiOf(box)),
          m_margin(scaled(12, m_dpi)),
          m_icon(wanted.style & boxstyle::Critical ? ::GetSystemMetrics(SM_CXICON) : 0) {}

    /// @return the size that the box needs inside
    SIZE build();

  private:
    HWND make(const wchar_t* name, const std::wstring& text, DWORD style, int id) const;
    /// Puts something into the line of the text, in the middle of its height.
    void putInLine(HWND child, int left, SIZE size) const;
    SIZE addText();
    std::wstring inLines(const std::wstring& text) const;
    void addIcon() const;
    void addButtons(const std::vector<BoxButton>& buttons, int width, int right, int top) const;

    HWND m_box;
    HFONT m_font;
    const MessageRequest& m_wanted;
    bool m_mirrored;
    Measure m_measure;
    int m_dpi;
    int m_margin;
    int m_icon;
    int m_lineHeight = 0;  ///< of text and icon
};

HWND BoxBuilder::make(const wchar_t* name, const std::wstring& text, DWORD style, int id) const {
    const HWND made = ::CreateWindowExW(
        0, name, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, m_box,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), moduleHandle(), nullptr);
    ::SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
    return made;
}

void BoxBuilder::putInLine(HWND child, int left, SIZE size) const {
    const int height = static_cast<int>(size.cy);
    ::MoveWindow(child, left, m_margin + (m_lineHeight - height) / 2, static_cast<int>(size.cx),
                 height, FALSE);
}

SIZE BoxBuilder::addText() {
    constexpr UINT kAsItStands = DT_NOPREFIX | DT_EDITCONTROL;
    const std::wstring whole = shownText(m_wanted.text);
    const std::wstring text = m_mirrored ? inLines(whole) : whole;
    SIZE size = m_measure.text(text, kAsItStands, m_measure.chars(kWidestText));
    size.cx += scaled(2, m_dpi);
    m_lineHeight = std::max(static_cast<int>(size.cy), m_icon);
    const HWND shown = make(WC_STATICW, text, SS_NOPREFIX | SS_EDITCONTROL, kTextId);
    putInLine(shown, m_margin + (m_icon > 0 ? m_icon + m_margin : 0), size);
    if (text != whole) setSpokenName(shown, whole);
    return size;
}

/// The lines of a text as a window from right to left shows them: a mark holds for one line alone,
/// so that it is broken into lines here.
std::wstring BoxBuilder::inLines(const std::wstring& text) const {
    const auto fits = [this](const std::wstring& line) {
        return m_measure.text(line, DT_NOPREFIX | DT_SINGLELINE).cx <= m_measure.chars(kWidestText);
    };
    std::wstring all;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(L'\n', at), text.size());
        std::wstring paragraph = text.substr(at, end - at);
        if (paragraph.ends_with(L'\r')) paragraph.pop_back();
        if (at > 0) all += L'\n';
        all += embeddedLines(paragraph, fits);
        at = end + 1;
    }
    return all;
}

void BoxBuilder::addIcon() const {
    const HICON icon = ::LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_HAND));
    const HWND shown = make(WC_STATICW, {}, SS_ICON, kIconId);
    ::SendMessageW(shown, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    putInLine(shown, m_margin, {m_icon, m_icon});
}

void BoxBuilder::addButtons(const std::vector<BoxButton>& buttons, int width, int right,
                            int top) const {
    const int gap = scaled(7, m_dpi);
    const int height = m_measure.lineHeight() + scaled(10, m_dpi);
    int x = right + gap - static_cast<int>(buttons.size()) * (width + gap);
    for (const BoxButton& each : buttons) {
        const bool first = &each == &buttons.front();
        const HWND made =
            make(WC_BUTTONW, each.caption, WS_TABSTOP | (first ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
                 each.number);
        ::MoveWindow(made, x, top, width, height, FALSE);
        x += width + gap;
        if (first) ::SetFocus(made);
    }
}

SIZE BoxBuilder::build() {
    const int text = static_cast<int>(addText().cx) + (m_icon > 0 ? m_icon + m_margin : 0);
    if (m_icon > 0) addIcon();
    const std::vector<BoxButton> buttons = buttonsOf(m_wanted);
    int width = scaled(80, m_dpi);
    for (const BoxButton& each : buttons)
        width =
            std::max(width, static_cast<int>(m_measure.text(each.caption).cx) + m_measure.chars(4));
    const int row = static_cast<int>(buttons.size()) * (width + m_margin);
    const int inner = std::max({text + 2 * m_margin, row + m_margin, titleWidth(m_box, m_dpi)});
    const int top = m_lineHeight + 2 * m_margin + scaled(4, m_dpi);
    addButtons(buttons, width, inner - m_margin, top);
    return {inner, top + m_measure.lineHeight() + scaled(10, m_dpi) + m_margin};
}

/// An empty dialog, as Windows wants it told.
struct EmptyDialog {
    DLGTEMPLATE dialog{};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

}  // namespace

int MessageWindow::run(HWND owner, bool mirrored, std::function<void()> cameUp) {
    m_cameUp = std::move(cameUp);
    m_mirrored = mirrored;
    EmptyDialog empty;
    empty.dialog.style = kBoxStyle | WS_VISIBLE;
    empty.dialog.dwExtendedStyle = mirrored ? WS_EX_LAYOUTRTL : 0;
    m_modality.emplace(nullptr, owner);
    const INT_PTR pressed = ::DialogBoxIndirectParamW(moduleHandle(), &empty.dialog, owner,
                                                      procedure, reinterpret_cast<LPARAM>(this));
    m_modality.reset();
    m_window = nullptr;
    if (m_font) ::DeleteObject(m_font);
    if (m_failure) std::rethrow_exception(m_failure);
    return pressed > 0 ? static_cast<int>(pressed) : unanswered();
}

int MessageWindow::unanswered() const {
    return asksYesNo(m_wanted.style) ? answer::No : answer::Ok;
}

INT_PTR CALLBACK MessageWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, l);
        reinterpret_cast<MessageWindow*>(l)->m_window = window;
    }
    auto* self = reinterpret_cast<MessageWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    try {
        return self->on(message, w) ? TRUE : FALSE;
    } catch (...) {
        self->m_failure = std::current_exception();
        self->end(self->unanswered());
        return TRUE;
    }
}

bool MessageWindow::on(UINT message, WPARAM w) {
    switch (message) {
        case WM_INITDIALOG:
            build();
            ::PostMessageW(m_window, kBoxCameUp, 0, 0);
            return false;  // the focus is on a button already
        case kBoxCameUp:
            if (const auto cameUp = std::exchange(m_cameUp, {})) cameUp();
            return true;
        case WM_COMMAND: {
            const int number = LOWORD(w);
            if (number == IDCANCEL)
                end(unanswered());
            else if (number < kIconId && button(number) && HIWORD(w) == BN_CLICKED)
                end(number);
            return true;
        }
        default:
            return false;
    }
}

void MessageWindow::end(int number) {
    m_modality.reset();
    ::EndDialog(m_window, number);
}

void MessageWindow::build() {
    // In the font of the dialog that asks.
    const auto font = m_wanted.owner ? m_wanted.owner->font() : nullptr;
    m_font = makeFont(font ? *font : Font{}, dpiOf(m_window));
    ::SetWindowTextW(m_window, embeddedSentence(toWidePlain(m_wanted.title), m_mirrored).c_str());
    const SIZE size = BoxBuilder(m_window, m_font, m_wanted, m_mirrored).build();
    const SIZE outer = outerSize(size, kBoxStyle, WS_EX_DLGMODALFRAME, dpiOf(m_window));
    const POINT place = centredOn(::GetWindow(m_window, GW_OWNER), outer);
    const bool onTop = (m_wanted.style & boxstyle::SystemModal) != 0;
    ::SetWindowPos(m_window, onTop ? HWND_TOPMOST : nullptr, place.x, place.y, outer.cx, outer.cy,
                   onTop ? 0 : SWP_NOZORDER);
    if (onTop) ::SetForegroundWindow(m_window);
    ::MessageBeep(m_wanted.style & boxstyle::Critical ? MB_ICONHAND : MB_OK);
}

}  // namespace wynconfig::native
