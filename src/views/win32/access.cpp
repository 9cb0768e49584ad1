// What assistive programs are told of the windows that Windows would speak of wrongly, and tips.
#include "views/win32/access.h"

// They build on the one before.
#include <initguid.h>
#include <oleacc.h>

#include "views/win32/module.h"

namespace wynconfig::native {

void setSpokenName(HWND window, const std::wstring& name) {
    const HRESULT entered = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IAccPropServices* services = nullptr;
    if (SUCCEEDED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_IAccPropServices, reinterpret_cast<void**>(&services)))) {
        services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                 PROPID_ACC_NAME, name.c_str());
        services->Release();
    }
    if (SUCCEEDED(entered)) ::CoUninitialize();
}

HWND makeTips() {
    // Not owned by the form: not every system puts a window in front that owns another one there.
    return ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0,
                             0, 0, nullptr, nullptr, moduleHandle(), nullptr);
}

void setTip(HWND tips, HWND window, const std::wstring& text) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = ::GetParent(window);
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    std::wstring shown = text;
    tool.lpszText = shown.data();
    ::SendMessageW(tips, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    ::SendMessageW(tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace wynconfig::native
