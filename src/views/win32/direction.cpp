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

using Fits = std::function<bool(const std::wstring&)>;

/// Where a line ends that begins here: behind the last word that there is room for, else behind as
/// much of a word as there is room for, one character at the least.
std::size_t endOfLine(const std::wstring& text, std::size_t begin, const Fits& fits) {
    std::size_t end = begin;
    for (std::size_t next = begin; next < text.size();) {
        next = std::min(text.find(L' ', next + 1), text.size());
        if (!fits(text.substr(begin, next - begin))) break;
        end = next;
    }
    if (end > begin) return end;
    const auto step = [&] { end += isPair(text, end) ? 2 : 1; };
    for (step(); end < text.size() && text[end] != L' '; step()) {
        const std::size_t longer = end + (isPair(text, end) ? 2 : 1);
        if (!fits(text.substr(begin, longer - begin))) break;
    }
    return end;
}

std::vector<std::wstring> brokenLines(const std::wstring& text, const Fits& fits) {
    std::vector<std::wstring> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = endOfLine(text, at, fits);
        lines.push_back(text.substr(at, end - at));
        // The blank between two lines belongs to none.
        at = end < text.size() && text[end] == L' ' ? end + 1 : end;
    }
    return lines;
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

std::wstring embeddedSentence(const std::wstring& text, bool mirrored) {
    if (!mirrored) return text;
    const std::vector<WORD> kinds = kindsIn(text);
    const bool fromRight = std::find(kinds.begin(), kinds.end(), C2_RIGHTTOLEFT) != kinds.end();
    if (!fromRight) return embedded(text, mirrored);
    return isMixed(kinds) ? kFromRight + text + kEnd : text;
}

std::wstring embeddedLines(const std::wstring& sentence,
                           const std::function<bool(const std::wstring&)>& fits) {
    const std::wstring marked = embeddedSentence(sentence, true);
    const auto shown = [&](const std::wstring& line) {
        return marked == sentence ? line : marked.front() + line + kEnd;
    };
    const auto shownFits = [&](const std::wstring& line) { return fits(shown(line)); };
    std::wstring all;
    for (const std::wstring& line : brokenLines(sentence, shownFits)) {
        if (!all.empty()) all += L'\n';
        all += shown(line);
    }
    return all;
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
