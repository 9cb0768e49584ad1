// The hands of the played person: messages as a real mouse and keyboard cause them, which take the
// way through the message loop.
#include "views/win32/person/hands.h"

#include <algorithm>
#include <array>

namespace wynconfig::native {

namespace {

constexpr std::size_t kLongText = 200;

void post(FormWindow& form, HWND window, UINT message, WPARAM w, LPARAM l) {
    MSG sent{};
    sent.hwnd = window;
    sent.message = message;
    sent.wParam = w;
    sent.lParam = l;
    form.handle(sent);
}

HWND focusedIn(const FormWindow& form) {
    const HWND focused = ::GetFocus();
    return focused && ::IsChild(form.window(), focused) ? focused : form.window();
}

/// Holds a key of the keyboard down as long as it lives.
class HeldKey {
  public:
    explicit HeldKey(int key) {
        ::GetKeyboardState(m_before.data());
        std::array<BYTE, 256> held = m_before;
        held[static_cast<std::size_t>(key)] = 0x80;
        ::SetKeyboardState(held.data());
    }
    ~HeldKey() { ::SetKeyboardState(m_before.data()); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

  private:
    std::array<BYTE, 256> m_before{};
};

LPARAM keyData(WORD key, bool up) {
    const UINT scan = ::MapVirtualKeyW(key, MAPVK_VK_TO_VSC);
    return static_cast<LPARAM>(1U | scan << 16 | (up ? 0xC0000000U : 0U));
}

bool onKeyboard(const std::wstring& text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t each) {
        return each >= L' ' && each != 0x7F && (each & 0xF800) != 0xD800;
    });
}

POINT middleOf(HWND window) {
    RECT all{};
    ::GetClientRect(window, &all);
    return {all.right / 2, all.bottom / 2};
}

void pressButton(FormWindow& form, HWND at, POINT place, UINT press) {
    const LPARAM spot = MAKELPARAM(place.x, place.y);
    post(form, at, press, MK_LBUTTON, spot);
    if (::IsWindow(at)) post(form, at, WM_LBUTTONUP, 0, spot);
}

/// Lists wait for the button to be let go before they are done with its press: that comes from the
/// queue by then. Where they don't, it is still there afterwards.
void pressRow(FormWindow& form, HWND list, POINT place, UINT press) {
    const LPARAM spot = MAKELPARAM(place.x, place.y);
    ::PostMessageW(list, WM_LBUTTONUP, 0, spot);
    post(form, list, press, MK_LBUTTON, spot);
    MSG release{};
    if (::IsWindow(list) && ::PeekMessageW(&release, list, WM_LBUTTONUP, WM_LBUTTONUP, PM_REMOVE))
        form.handle(release);
}

}  // namespace

void bringUp(HWND window) {
    if (::GetForegroundWindow() != window) ::SetForegroundWindow(window);
    if (::GetActiveWindow() != window) ::SetActiveWindow(window);
}

void mouseClick(FormWindow& form, HWND at) {
    mouseClick(form, at, middleOf(at));
}

void mouseClick(FormWindow& form, HWND at, POINT place) {
    pressButton(form, at, place, WM_LBUTTONDOWN);
}

void rowClick(FormWindow& form, HWND list, POINT place) {
    pressRow(form, list, place, WM_LBUTTONDOWN);
}

void rowDoubleClick(FormWindow& form, HWND list, POINT place) {
    pressRow(form, list, place, WM_LBUTTONDBLCLK);
}

void keyClick(FormWindow& form, WORD key, bool withCtrl) {
    const HWND focused = focusedIn(form);
    {
        const HeldKey ctrl(withCtrl ? VK_CONTROL : key);
        post(form, focused, WM_KEYDOWN, key, keyData(key, false));
    }
    if (form.live() && ::IsWindow(focused)) post(form, focused, WM_KEYUP, key, keyData(key, true));
}

void keyClickAt(FormWindow& form, HWND window, WORD key) {
    post(form, window, WM_KEYDOWN, key, keyData(key, false));
    if (form.live() && ::IsWindow(window)) post(form, window, WM_KEYUP, key, keyData(key, true));
}

std::wstring tipOf(HWND window, HWND tips) {
    NMTTDISPINFOW asked{};
    asked.hdr.hwndFrom = tips;
    asked.hdr.idFrom = reinterpret_cast<UINT_PTR>(window);
    asked.hdr.code = TTN_GETDISPINFOW;
    ::SendMessageW(::GetParent(window), WM_NOTIFY, asked.hdr.idFrom,
                   reinterpret_cast<LPARAM>(&asked));
    return asked.lpszText ? asked.lpszText : L"";
}

void pressWithAlt(FormWindow& form, const std::wstring& character) {
    constexpr LPARAM kAltIsDown = LPARAM{1} << 29;
    const HeldKey alt(VK_MENU);
    for (const wchar_t unit : character)
        post(form, focusedIn(form), WM_SYSCHAR, unit, kAltIsDown | 1);
}

void typeLetters(FormWindow& form, const std::wstring& letters) {
    for (const wchar_t unit : letters) {
        if (form.live()) post(form, focusedIn(form), WM_CHAR, unit, 1);
    }
}

void typeText(FormWindow& form, const std::wstring& text) {
    if (text.size() <= kLongText && onKeyboard(text))
        typeLetters(form, text);
    else
        ::SendMessageW(focusedIn(form), EM_REPLACESEL, TRUE,
                       reinterpret_cast<LPARAM>(text.c_str()));
}

}  // namespace wynconfig::native
