// Colours that can be told apart, in every colour scheme.
#include "views/qt/colours.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace wynconfig::desktop {

namespace {

/// The contrast that people with weak eyes need is 4.5; some more, since styles shade the grounds
/// of groups a little. Marks in boxes they draw paler than texts.
constexpr double kReadableContrast = 5.5;
constexpr double kReadableMarks = 6.5;
/// The contrast by which a box that is switched off is told from the others.
constexpr double kVisibleContrast = 1.12;
/// What shows where a box is needs a contrast of 3, and less of it when the box is switched off.
constexpr double kClearOutline = 4.5;
constexpr double kInactiveOutline = 3.5;

/// A colour between two, which has `share` of the first.
QColor mix(const QColor& one, const QColor& other, double share) {
    const auto between = [share](int a, int b) {
        return static_cast<int>(std::lround(share * a + (1.0 - share) * b));
    };
    return {between(one.red(), other.red()), between(one.green(), other.green()),
            between(one.blue(), other.blue())};
}

/// The luminance of a colour as the contrast of texts is reckoned with.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// The first colour on the way to another with enough contrast to all grounds; the other when none
/// has.
QColor firstClear(const QColor& from, const QColor& to, const QList<QColor>& grounds,
                  double enough = kReadableContrast) {
    constexpr int kSteps = 40;
    for (int step = 0; step < kSteps; ++step) {
        const QColor shade = mix(to, from, static_cast<double>(step) / kSteps);
        const auto isClear = [&](const QColor& each) { return contrast(shade, each) >= enough; };
        if (std::all_of(grounds.begin(), grounds.end(), isClear)) return shade;
    }
    return to;
}

/// Styles draw pages and buttons in lighter shades than they are told.
QColor raised(const QColor& ground) {
    constexpr int kLighter = 125;
    return ground.lighter(kLighter);
}

void clearText(QPalette& palette, QPalette::ColorRole text, const QList<QColor>& grounds,
               double enough = kReadableContrast) {
    palette.setColor(QPalette::Disabled, text,
                     firstClear(palette.color(QPalette::Disabled, text),
                                palette.color(QPalette::Active, text), grounds, enough));
}

/// Texts that are paler than others although they are in use: hints in empty boxes, and links.
void clearPaleText(QPalette& palette, QPalette::ColorRole pale) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ground = palette.color(group, QPalette::Base);
        const QColor given = palette.color(group, pale);
        const QColor shown = mix(QColor(given.rgb()), ground, given.alphaF());
        palette.setColor(group, pale,
                         firstClear(shown, palette.color(QPalette::Active, QPalette::Text),
                                    {ground, palette.color(group, QPalette::Window)}));
    }
}

/// Moves the ground away from the text: it keeps its hue, and the text its place in the scheme.
void clearSelection(QPalette& palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        const QColor away = luminance(text) > 0.5 ? Qt::black : Qt::white;
        palette.setColor(group, QPalette::Highlight,
                         firstClear(palette.color(group, QPalette::Highlight), away, {text}));
    }
    // Where the keys do not go now.
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     mix(palette.color(QPalette::Active, QPalette::Highlight),
                         palette.color(QPalette::Active, QPalette::Base), 0.5));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText,
                     palette.color(QPalette::Active, QPalette::Text));
}

/// The ground of a box that is switched off: that of the window, where it differs enough.
QColor inactiveBase(const QPalette& palette) {
    const QColor grey = palette.color(QPalette::Active, QPalette::Window);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    if (contrast(grey, base) >= kVisibleContrast) return grey;
    return mix(palette.color(QPalette::Active, QPalette::Text), base, 0.15);
}

/// What may lie on both sides of an outline.
QList<QColor> groundsOf(const QPalette& palette, Ground around) {
    QList<QColor> grounds{palette.color(QPalette::Window), palette.color(QPalette::Base)};
    if (around == Ground::Raised) grounds << raised(palette.color(QPalette::Button));
    return grounds;
}

}  // namespace

QPalette readable(QPalette palette) {
    palette.setColor(QPalette::Disabled, QPalette::Base, inactiveBase(palette));
    const QColor button = palette.color(QPalette::Disabled, QPalette::Button);
    const QList<QColor> buttons{button, raised(button)};
    clearText(palette, QPalette::Text, {palette.color(QPalette::Disabled, QPalette::Base)},
              kReadableMarks);
    clearText(palette, QPalette::Text, buttons);
    clearText(palette, QPalette::ButtonText, buttons);
    clearText(palette, QPalette::WindowText,
              {palette.color(QPalette::Disabled, QPalette::Window), raised(button)});
    clearPaleText(palette, QPalette::PlaceholderText);
    clearPaleText(palette, QPalette::Link);
    clearSelection(palette);
    return palette;
}

QPalette refusedPalette() {
    QPalette palette = readable(QGuiApplication::palette());
    for (const auto ground : {QPalette::Base, QPalette::AlternateBase, QPalette::Button}) {
        const QColor usual = palette.color(QPalette::Active, ground);
        const double share = luminance(usual) > 0.5 ? 0.2 : 0.35;
        palette.setColor(ground, mix(QColor(200, 0, 0), usual, share));
    }
    return palette;
}

QColor inactiveColour() {
    return inactiveBase(QGuiApplication::palette());
}

QPalette inactivePalette() {
    const QPalette usual = readable(QGuiApplication::palette());
    QPalette palette;
    palette.setColor(QPalette::Base, inactiveColour());
    palette.setColor(QPalette::Disabled, QPalette::Text,
                     firstClear(usual.color(QPalette::Disabled, QPalette::Text),
                                usual.color(QPalette::Active, QPalette::Text), {inactiveColour()}));
    return palette;
}

QColor outlineColour(const QPalette& palette, Ground around, bool isEnabled) {
    return firstClear(palette.color(QPalette::Window),
                      palette.color(QPalette::Active, QPalette::WindowText),
                      groundsOf(palette, around), isEnabled ? kClearOutline : kInactiveOutline);
}

QColor focusColour(const QPalette& palette, Ground around) {
    return firstClear(palette.color(QPalette::Highlight),
                      palette.color(QPalette::Active, QPalette::WindowText),
                      groundsOf(palette, around), kClearOutline);
}

}  // namespace wynconfig::desktop
