// The fonts of a window, and how much room its texts take.
#include "views/win32/fonts.h"

#include <cmath>

#include "views/win32/convert.h"
#include "views/win32/module.h"

namespace wynconfig::native {

HFONT makeFont(const Font& font, int dpi) {
    constexpr double kPointsPerInch = 72.0;
    LOGFONTW wanted = userMetrics(dpi).lfMessageFont;
    if (!font.family.empty())
        ::lstrcpynW(wanted.lfFaceName, toWide(font.family).c_str(), LF_FACESIZE);
    if (font.pointSize > 0.0) {
        wanted.lfHeight = -static_cast<LONG>(std::lround(font.pointSize * dpi / kPointsPerInch));
        wanted.lfWidth = 0;
    }
    if (font.bold) wanted.lfWeight = FW_BOLD;
    if (font.italic) wanted.lfItalic = TRUE;
    return ::CreateFontIndirectW(&wanted);
}

Fonts::~Fonts() {
    for (const auto& [key, font] : m_made) ::DeleteObject(font);
}

HFONT Fonts::of(const Font* font) {
    const Font wanted = font ? *font : Font{};
    HFONT& made = m_made[{m_dpi, wanted.family, wanted.pointSize, wanted.bold, wanted.italic}];
    if (!made) made = makeFont(wanted, m_dpi);
    return made;
}

Measure::Measure(HFONT font)
    : m_screen(::GetDC(nullptr)), m_before(::SelectObject(m_screen, font)) {}

Measure::~Measure() {
    ::SelectObject(m_screen, m_before);
    ::ReleaseDC(nullptr, m_screen);
}

SIZE Measure::text(const std::wstring& text, UINT format, int width) const {
    RECT room{0, 0, width, 0};
    if (width > 0) format |= DT_WORDBREAK;
    ::DrawTextW(m_screen, text.c_str(), static_cast<int>(text.size()), &room, format | DT_CALCRECT);
    return {room.right, room.bottom};
}

int Measure::lineHeight() const {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(m_screen, &metrics);
    return static_cast<int>(metrics.tmHeight);
}

int Measure::chars(int count) const {
    // A run of digits, which are as wide as usual letters.
    SIZE size{};
    const std::wstring digits(static_cast<std::size_t>(count), L'0');
    ::GetTextExtentPoint32W(m_screen, digits.c_str(), count, &size);
    return static_cast<int>(size.cx);
}

}  // namespace wynconfig::native
