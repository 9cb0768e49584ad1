// The classes of the component's own windows.
#include "views/win32/classes.h"

#include <string_view>

#include "views/win32/module.h"

namespace wynconfig::native {

namespace {

WindowOwner* ownerIn(HWND window) {
    return reinterpret_cast<WindowOwner*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
}

LRESULT CALLBACK formProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    WindowOwner* const owner = ownerIn(window);
    LRESULT result = 0;
    if (owner && owner->received(message, w, l, result)) return result;
    return ::DefWindowProcW(window, message, w, l);
}

/// What stands on a pane tells the form, as does what stands on the form itself.
LRESULT CALLBACK paneProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND:
        case WM_NOTIFY:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSTATIC:
            return ::SendMessageW(::GetParent(window), message, w, l);
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT: {
            RECT all{};
            ::GetClientRect(window, &all);
            const LRESULT brush = ::SendMessageW(::GetParent(window), WM_CTLCOLORSTATIC, w,
                                                 reinterpret_cast<LPARAM>(window));
            ::FillRect(reinterpret_cast<HDC>(w), &all, reinterpret_cast<HBRUSH>(brush));
            return 1;
        }
        default:
            return ::DefWindowProcW(window, message, w, l);
    }
}

bool registerClass(const wchar_t* name, WNDPROC procedure) {
    WNDCLASSEXW made{};
    made.cbSize = sizeof made;
    made.lpfnWndProc = procedure;
    made.hInstance = moduleHandle();
    made.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    made.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    made.lpszClassName = name;
    return ::RegisterClassExW(&made) != 0;
}

}  // namespace

void registerClasses() {
    [[maybe_unused]] static const bool done =
        registerClass(kFormClass, formProcedure) && registerClass(kPaneClass, paneProcedure);
}

void setOwner(HWND window, WindowOwner* owner) {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
}

WindowOwner* ownerOf(HWND window) {
    wchar_t name[32] = L"";
    ::GetClassNameW(window, name, 32);
    return std::wstring_view(name) == kFormClass ? ownerIn(window) : nullptr;
}

}  // namespace wynconfig::native
