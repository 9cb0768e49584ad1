// The hands of the played person: messages as a real mouse and keyboard cause them, which take the
// way through the message loop.
#pragma once

#include <string>

#include "views/win32/form_window.h"

namespace wynconfig::native {

/// Sees to it that the window is the active one, as the one that a person works in is.
void bringUp(HWND window);
/// Presses and lets go the left mouse button in the middle of a window, or at a place in it.
void mouseClick(FormWindow& form, HWND at);
void mouseClick(FormWindow& form, HWND at, POINT place);
/// The same at a row of a list.
void rowClick(FormWindow& form, HWND list, POINT place);
/// Presses and lets go the button once more, quickly after a click at the same row.
void rowDoubleClick(FormWindow& form, HWND list, POINT place);
/// Presses and lets go a key in the window that has the focus.
void keyClick(FormWindow& form, WORD key, bool withCtrl = false);
/// Presses and lets go a key in a window that stands beside the form.
void keyClickAt(FormWindow& form, HWND window, WORD key);
/// What the tip of a window tells, as the mouse has it asked.
std::wstring tipOf(HWND window, HWND tips);
/// Presses Alt and the key of a character, as a mark in a caption asks for.
void pressWithAlt(FormWindow& form, const std::wstring& character);
/// Types into the window that has the focus: by the keyboard, or, where a keyboard has no keys for
/// it or it is long, as it is pasted.
void typeText(FormWindow& form, const std::wstring& text);
/// Types letters by the keyboard.
void typeLetters(FormWindow& form, const std::wstring& letters);

}  // namespace wynconfig::native
