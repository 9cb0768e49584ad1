// The grounds on which controls stand, in the user's colours.
#include "views/win32/colours.h"

// It builds on the one before.
#include <uxtheme.h>

#include <cmath>

namespace wynconfig::native {

namespace {

/// The contrast by which a box that is switched off is told from the others.
constexpr double kVisibleContrast = 1.12;

double linear(int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF colour) {
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

double contrast(COLORREF one, COLORREF other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return a > b ? a / b : b / a;
}

/// A colour between two, which has `share` of the first.
COLORREF mix(COLORREF one, COLORREF other, double share) {
    const auto between = [share](int a, int b) {
        return static_cast<BYTE>(std::lround(share * a + (1.0 - share) * b));
    };
    return RGB(between(GetRValue(one), GetRValue(other)), between(GetGValue(one), GetGValue(other)),
               between(GetBValue(one), GetBValue(other)));
}

COLORREF inactiveColour() {
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    const COLORREF inactive = ::GetSysColor(COLOR_INACTIVEBORDER);
    if (contrast(inactive, window) >= kVisibleContrast) return inactive;
    const COLORREF face = ::GetSysColor(COLOR_3DFACE);
    if (contrast(face, window) >= kVisibleContrast) return face;
    return mix(::GetSysColor(COLOR_WINDOWTEXT), window, 0.15);
}

COLORREF reddish() {
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    if (::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
        (contrast.dwFlags & HCF_HIGHCONTRASTON))
        return window;
    return mix(RGB(200, 0, 0), window, luminance(window) > 0.5 ? 0.2 : 0.35);
}

/// What the user's style fills the pages of tabs with.
COLORREF paneColour() {
    constexpr int kBody = 10;              // TABP_BODY
    constexpr int kFillColourHint = 3821;  // TMT_FILLCOLORHINT
    COLORREF colour = ::GetSysColor(COLOR_3DFACE);
    if (const HTHEME theme = ::IsAppThemed() ? ::OpenThemeData(nullptr, L"TAB") : nullptr) {
        if (FAILED(::GetThemeColor(theme, kBody, 0, kFillColourHint, &colour)))
            colour = ::GetSysColor(COLOR_WINDOW);
        ::CloseThemeData(theme);
    }
    return colour;
}

}  // namespace

Colours::~Colours() {
    release();
}

void Colours::release() {
    ::DeleteObject(m_pane);
    ::DeleteObject(m_inactive);
    ::DeleteObject(m_refused);
}

void Colours::renew() {
    release();
    m_inactiveColour = inactiveColour();
    m_inactive = ::CreateSolidBrush(m_inactiveColour);
    m_refusedColour = reddish();
    m_refused = ::CreateSolidBrush(m_refusedColour);
    m_pane = ::CreateSolidBrush(paneColour());
}

HBRUSH Colours::box(Background background) const {
    return background == Background::InactiveBorder ? m_inactive : ::GetSysColorBrush(COLOR_WINDOW);
}

COLORREF Colours::boxColour(Background background) const {
    return background == Background::InactiveBorder ? m_inactiveColour
                                                    : ::GetSysColor(COLOR_WINDOW);
}

}  // namespace wynconfig::native
