// Where windows come up, and how wide they have to be for their titles.
#include "views/win32/placing.h"

#include <algorithm>

#include "views/win32/convert.h"
#include "views/win32/fonts.h"
#include "views/win32/module.h"

namespace wynconfig::native {

int titleWidth(HWND window, int dpi) {
    constexpr int kWidest = 74;  // characters
    constexpr int kAir = 4;
    const NONCLIENTMETRICSW metrics = userMetrics(dpi);
    const HFONT font = ::CreateFontIndirectW(&metrics.lfCaptionFont);
    int width = 0;
    {
        const Measure measure(font);
        const SIZE title = measure.text(textOf(window), DT_NOPREFIX | DT_SINGLELINE);
        width = std::min(static_cast<int>(title.cx), measure.chars(kWidest)) + measure.chars(kAir) +
                metrics.iCaptionWidth;
    }
    ::DeleteObject(font);
    return width;
}

POINT centredOn(HWND above, SIZE size) {
    const RECT screen = workArea(above);
    RECT around = screen;
    if (above && ::IsWindowVisible(above) && !::IsIconic(above)) ::GetWindowRect(above, &around);
    const auto within = [](LONG from, LONG to, LONG middle, LONG length) {
        return std::max(from, std::min(middle - length / 2, to - length));
    };
    return {within(screen.left, screen.right, (around.left + around.right) / 2, size.cx),
            within(screen.top, screen.bottom, (around.top + around.bottom) / 2, size.cy)};
}

}  // namespace wynconfig::native
