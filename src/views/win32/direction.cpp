// In which direction texts are read.
#include "views/win32/direction.h"

#include <algorithm>
#include <vector>

#include "views/win32/convert.h"

namespace wynconfig::native {

namespace {

// A text between one of these and their end runs as the one says. Isolates would do so too, but not
// on every Windows.
constexpr wchar_t kFromLeft = L'\u202A';
constexpr wchar_t kFromRight = L'\u202B';
constexpr wchar_t kEnd = L'\u202C';

/// What each character is in the order of a line: `C2_LEFTTORIGHT` and the like.
std::vector<WORD> kindsIn(const std::wstring& text) {
    std::vector<WORD> kinds(text.size());
    if (text.empty() ||
        !::GetStringTypeW(CT_CTYPE2, text.data(), static_cast<int>(text.size()), kinds.data()))
        return {};
    return kinds;
}

/// The direction of a text's first letter: below 0 from right to left, 0 for no letter.
int directionOf(const std::vector<WORD>& kinds) {
    const auto letter = std::find_if(kinds.begin(), kinds.end(), [](WORD kind) {
        return kind == C2_LEFTTORIGHT || kind == C2_RIGHTTOLEFT;
    });
    if (letter == kinds.end()) return 0;
    return *letter == C2_RIGHTTOLEFT ? -1 : 1;
}

int directionOf(const std::wstring& text) {
    return directionOf(kindsIn(text));
}

/// Whether a text from right to left has more than such letters inside, or something else at its
/// end.
bool isMixed(const std::vector<WORD>& kinds) {
    const bool hasOthers = std::any_of(kinds.begin(), kinds.end(), [](WORD kind) {
        return kind == C2_LEFTTORIGHT || kind == C2_EUROPENUMBER;
    });
    return hasOthers || kinds.back() != C2_RIGHTTOLEFT;
}

}  // namespace

bool isProcessMirrored() {
    DWORD layout = 0;
    return ::GetProcessDefaultLayout(&layout) && (layout & LAYOUT_RTL);
}

bool readsFromRight(const Form& form) {
    int sum = 0;
    for (const Control* each : form.controls()) {
        if (const auto* captioned = dynamic_cast<const CaptionedControl*>(each))
            sum += directionOf(toWidePlain(captioned->caption()));
    }
    return sum < 0;
}

std::wstring embedded(const std::wstring& text, bool mirrored) {
    if (!mirrored) return text;
    const std::vector<WORD> kinds = kindsIn(text);
    const int direction = directionOf(kinds);
    if (direction > 0) return kFromLeft + text + kEnd;
    // Not every control of every system takes the direction of the window for that of a text. What
    // has no letters, like an arrow, is to turn around with the window.
    return direction < 0 && isMixed(kinds) ? kFromRight + text + kEnd : text;
}

std::wstring unembedded(std::wstring text) {
    const bool isEmbedded = text.size() > 1 && text.back() == kEnd &&
                            (text.front() == kFromLeft || text.front() == kFromRight);
    if (isEmbedded) text = text.substr(1, text.size() - 2);
    return text;
}

void followDirection(HWND box) {
    // A box that is mirrored itself could show no text from left to right.
    constexpr LONG_PTR kAll = WS_EX_LAYOUTRTL | WS_EX_RTLREADING;
    const LONG_PTR style = ::GetWindowLongPtrW(box, GWL_EXSTYLE);
    const LONG_PTR wanted = (style & ~kAll) | (directionOf(textOf(box)) < 0 ? WS_EX_RTLREADING : 0);
    if (wanted == style) return;
    ::SetWindowLongPtrW(box, GWL_EXSTYLE, wanted);
    ::InvalidateRect(box, nullptr, TRUE);
}

}  // namespace wynconfig::native
