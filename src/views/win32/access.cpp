// What assistive programs are told of the windows that Windows would speak of wrongly, and tips.
#include "views/win32/access.h"

// They build on the one before.
#include <initguid.h>
#include <oleacc.h>

#include "views/win32/module.h"

namespace wynconfig::native {

namespace {

void annotate(HWND window, MSAAPROPID property, const std::wstring& text) {
    const HRESULT entered = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IAccPropServices* services = nullptr;
    if (SUCCEEDED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IAccPropServices, reinterpret_cast<void**>(&services)))) {
        services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, property,
                                 text.c_str());
        services->Release();
    }
    if (SUCCEEDED(entered)) ::CoUninitialize();
}

}  // namespace

void setSpokenName(HWND window, const std::wstring& name) {
    annotate(window, PROPID_ACC_NAME, name);
}

void setSpokenDescription(HWND window, const std::wstring& description) {
    annotate(window, PROPID_ACC_DESCRIPTION, description);
}

bool asksForAccess(UINT message, LPARAM l) {
    return message == WM_GETOBJECT && static_cast<LONG>(l) == OBJID_CLIENT;
}

namespace {

void addTip(HWND tips, HWND window, wchar_t* text) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = ::GetParent(window);
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = text;
    ::SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

HWND makeTips() {
    constexpr int kWidth = 400;
    // Not owned by the form: not every system puts a window in front that owns another one there.
    const HWND tips =
        ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0,
                          0, nullptr, nullptr, moduleHandle(), nullptr);
    // Wraps what is longer, and leaves time to read it.
    ::SendMessageW(tips, TTM_SETMAXTIPWIDTH, 0, scaled(kWidth, dpiOf(tips)));
    ::SendMessageW(tips, TTM_SETDELAYTIME, TTDT_AUTOPOP, SHRT_MAX);
    return tips;
}

void setTip(HWND tips, HWND window, const std::wstring& text) {
    std::wstring shown = text;
    addTip(tips, window, shown.data());
}

void setAskedTip(HWND tips, HWND window) {
    addTip(tips, window, LPSTR_TEXTCALLBACKW);
}

}  // namespace wynconfig::native
