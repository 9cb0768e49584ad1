// Where windows come up, and how wide they have to be for their titles.
#pragma once

#include "views/win32/winapi.h"

namespace wynconfig::native {

/// How wide a window is inside, at the least, to show its title.
int titleWidth(HWND window, int dpi);

/// The corner of a window that is to come up in the middle of another one, or, where that can't be
/// seen, of the screen; whole on the screen in any case.
/// @param above  the other one; null: the screen
POINT centredOn(HWND above, SIZE size);

}  // namespace wynconfig::native
