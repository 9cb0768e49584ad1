// In which direction texts are read.
#include "views/win32/direction.h"

#include <algorithm>
#include <vector>

#include "views/win32/convert.h"

namespace wynconfig::native {

namespace {

/// The direction of a text's first letter: below 0 from right to left, 0 for no letter.
int directionOf(const std::string& caption) {
    const std::wstring text = toWidePlain(caption);
    if (text.empty()) return 0;
    std::vector<WORD> kinds(text.size());
    if (!::GetStringTypeW(CT_CTYPE2, text.data(), static_cast<int>(text.size()), kinds.data()))
        return 0;
    const auto letter = std::find_if(kinds.begin(), kinds.end(), [](WORD kind) {
        return kind == C2_LEFTTORIGHT || kind == C2_RIGHTTOLEFT;
    });
    if (letter == kinds.end()) return 0;
    return *letter == C2_RIGHTTOLEFT ? -1 : 1;
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
            sum += directionOf(captioned->caption());
    }
    return sum < 0;
}

}  // namespace wynconfig::native
