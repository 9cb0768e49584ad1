// Frames of which nothing is seen, but which are there for what stands in them.
#pragma once

#include "views/win32/winapi.h"

namespace wynconfig::native {

/// Has nothing of a frame drawn from here on. It keeps its place, and assistive programs find it.
inline void hideOutline(HWND frame) {
    ::SetWindowRgn(frame, ::CreateRectRgn(0, 0, 0, 0), TRUE);
}

/// Has all of it drawn again.
inline void showOutline(HWND frame) {
    ::SetWindowRgn(frame, nullptr, TRUE);
}

}  // namespace wynconfig::native
