// A window that comes up above the others, which wait meanwhile.
#include "views/win32/modality.h"

namespace wynconfig::native {

namespace {

BOOL CALLBACK addWaiting(HWND window, LPARAM modality) {
    reinterpret_cast<Modality*>(modality)->disable(window);
    return TRUE;
}

}  // namespace

Modality::Modality(HWND above, HWND owner) : m_above(above) {
    ::EnumThreadWindows(::GetCurrentThreadId(), addWaiting, reinterpret_cast<LPARAM>(this));
    if (owner) disable(owner);
}

void Modality::disable(HWND window) {
    if (window == m_above || !::IsWindowVisible(window) || !::IsWindowEnabled(window)) return;
    m_waiting.push_back(window);
    ::EnableWindow(window, FALSE);
}

void Modality::end() {
    for (HWND each : m_waiting) {
        if (::IsWindow(each)) ::EnableWindow(each, TRUE);
    }
    m_waiting.clear();
}

}  // namespace wynconfig::native
