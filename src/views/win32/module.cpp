// The module that this code is loaded from, and what it takes from a Windows that may be an older
// one.
#include "views/win32/module.h"

namespace wynconfig::native {

namespace {

constexpr int kManifest = 2;

/// A function of user32 that not every Windows has; null where it has none.
template <class Function>
Function* ofUser32(const char* name) {
    const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name);
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

HANDLE makeContext() {
    wchar_t path[MAX_PATH + 1] = L"";
    ::GetModuleFileNameW(moduleHandle(), path, MAX_PATH);
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = path;
    wanted.hModule = moduleHandle();
    wanted.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return ::CreateActCtxW(&wanted);
}

}  // namespace

HINSTANCE moduleHandle() {
    HMODULE module = nullptr;
    ::GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(reinterpret_cast<void*>(&moduleHandle)), &module);
    return module;
}

OwnControls::OwnControls() {
    static const HANDLE context = makeContext();
    m_active = context != INVALID_HANDLE_VALUE && ::ActivateActCtx(context, &m_cookie);
}

OwnControls::~OwnControls() {
    if (m_active) ::DeactivateActCtx(0, m_cookie);
}

int dpiOf(HWND window) {
    static const auto dpiForWindow = ofUser32<UINT WINAPI(HWND)>("GetDpiForWindow");
    const UINT ofWindow = window && dpiForWindow ? dpiForWindow(window) : 0;
    if (ofWindow > 0) return static_cast<int>(ofWindow);
    const HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

SIZE outerSize(SIZE inside, DWORD style, DWORD extended, int dpi) {
    static const auto adjust =
        ofUser32<BOOL WINAPI(LPRECT, DWORD, BOOL, DWORD, UINT)>("AdjustWindowRectExForDpi");
    RECT frame{0, 0, inside.cx, inside.cy};
    if (!adjust || !adjust(&frame, style, FALSE, extended, static_cast<UINT>(dpi)))
        ::AdjustWindowRectEx(&frame, style, FALSE, extended);
    return {frame.right - frame.left, frame.bottom - frame.top};
}

NONCLIENTMETRICSW userMetrics(int dpi) {
    static const auto forDpi =
        ofUser32<BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!forDpi ||
        !forDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)))
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics;
}

RECT workArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const HMONITOR there = ::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY);
    if (::GetMonitorInfoW(there, &monitor)) return monitor.rcWork;
    return {0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace wynconfig::native
