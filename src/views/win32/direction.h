// In which direction texts are read.
#pragma once

#include <functional>
#include <string>

#include "views/win32/winapi.h"
#include "wynconfig/form.h"

namespace wynconfig::native {

/// Whether the windows of this process run from right to left by the host's wish.
bool isProcessMirrored();

/// Whether most of a form's captions are in a script that is read from right to left.
bool readsFromRight(const Form& form);

/// A text as a window shows it that runs from right to left: paths, names and tokens, which are
/// read from left to right, stand between marks that nobody sees, and so do texts from right to
/// left with others in them. Elsewhere it is the text itself.
std::wstring embedded(const std::wstring& text, bool mirrored);
/// The same of a sentence, title or caption of the window, in which a name may come first: it is
/// read from right to left wherever it has letters of such a script.
std::wstring embeddedSentence(const std::wstring& text, bool mirrored);
/// A sentence in a window that runs from right to left, broken between words, and words that are
/// wider than a line anywhere; each line has its marks.
/// @param fits  whether there is room for a line
std::wstring embeddedLines(const std::wstring& sentence,
                           const std::function<bool(const std::wstring&)>& fits);
/// A text without these marks.
std::wstring unembedded(std::wstring text);

/// The style of a box to type in, whose text stands where those of the others do.
inline DWORD sideOfBox(bool mirrored) {
    return mirrored ? ES_RIGHT : ES_LEFT;
}
/// Has the text of a box to type in run in its own direction, whatever that of the window is. To be
/// called when the box is made, and when its text changes.
void followDirection(HWND box);

}  // namespace wynconfig::native
