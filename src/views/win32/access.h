// What assistive programs are told of the windows that Windows would speak of wrongly, and tips.
#pragma once

#include <string>

#include "views/win32/winapi.h"

namespace wynconfig::native {

/// By which a window is spoken of. Where the system has no such service, Windows finds out by the
/// label before the window.
void setSpokenName(HWND window, const std::wstring& name);
/// What is told of a window beyond that. Where the system has no such service: nothing.
void setSpokenDescription(HWND window, const std::wstring& description);
/// Whether a message to a window is the question of an assistive program what it is.
bool asksForAccess(UINT message, LPARAM l);

/// Makes the window that shows the tips of a form, which destroys it.
HWND makeTips();
/// What is shown when the mouse rests on a window.
void setTip(HWND tips, HWND window, const std::wstring& text);
/// The same, but the text is asked for only then: the window's parent gets TTN_GETDISPINFOW.
void setAskedTip(HWND tips, HWND window);

}  // namespace wynconfig::native
