// Between the words of the component and those of Windows: text, carets and lengths.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "views/win32/winapi.h"

namespace wynconfig::native {

std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// A caption as Windows reads it: one mark at the most, since it would draw a line below each.
std::wstring toWideCaption(std::string_view caption);
/// A caption's words for a control that reads marks, although this caption has none to follow.
std::wstring toWideUnmarked(std::string_view caption);
/// A caption's words for what reads no marks.
std::wstring toWidePlain(std::string_view caption);

/// What a window shows: its title, its caption, or the text of a box.
std::wstring textOf(HWND window);
/// Writes the text where it is another one.
/// @return whether it was
bool showText(HWND window, const std::wstring& text);

/// Carets of Windows count units of UTF-16, those of the component characters.
std::size_t charsBefore(std::wstring_view text, std::size_t units);
std::size_t unitsBefore(std::wstring_view text, std::size_t chars);
/// Whether a character of two units begins here.
bool isPair(std::wstring_view text, std::size_t at);
/// Whether the text has half a character just before this place: its other half is yet to come.
bool isHalfBefore(std::wstring_view text, std::size_t at);

/// @param dpi  dots of the screen in an inch
int toPixels(int twips, int dpi);
int toTwips(int pixels, int dpi);

}  // namespace wynconfig::native
