// Colours that can be told apart, in every colour scheme.
#include "views/qt/colours.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace wynconfig::desktop {

namespace {

/// The contrast that people with weak eyes need is 4.5; some more, since styles shade the grounds
/// of groups and pages a little, and those of buttons more than that.
constexpr double kReadableContrast = 5.5;
constexpr double kReadableOnButtons = 6.5;
/// The contrast by which a box that is switched off is told from the others.
constexpr double kVisibleContrast = 1.12;

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

/// The first colour on the way to another with enough contrast to a ground; the other when none
/// has.
QColor firstClear(const QColor& from, const QColor& to, const QColor& ground,
                  double enough = kReadableContrast) {
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor shade = mix(to, from, static_cast<double>(step) / kSteps);
        if (contrast(shade, ground) >= enough) return shade;
    }
    return to;
}

void clearText(QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole ground) {
    const double enough = ground == QPalette::Button ? kReadableOnButtons : kReadableContrast;
    palette.setColor(
        QPalette::Disabled, text,
        firstClear(palette.color(QPalette::Disabled, text), palette.color(QPalette::Active, text),
                   palette.color(QPalette::Disabled, ground), enough));
}

/// Moves the ground away from the text: it keeps its hue, and the text its place in the scheme.
void clearSelection(QPalette& palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        const QColor away = luminance(text) > 0.5 ? Qt::black : Qt::white;
        palette.setColor(group, QPalette::Highlight,
                         firstClear(palette.color(group, QPalette::Highlight), away, text));
    }
}

}  // namespace

QPalette readable(QPalette palette) {
    clearText(palette, QPalette::Text, QPalette::Base);
    clearText(palette, QPalette::Text, QPalette::Button);
    clearText(palette, QPalette::WindowText, QPalette::Window);
    clearText(palette, QPalette::ButtonText, QPalette::Button);
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
    const QPalette palette = QGuiApplication::palette();
    const QColor grey = palette.color(QPalette::Active, QPalette::Window);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    if (contrast(grey, base) >= kVisibleContrast) return grey;
    return mix(palette.color(QPalette::Active, QPalette::Text), base, 0.15);
}

QPalette inactivePalette() {
    const QPalette usual = readable(QGuiApplication::palette());
    QPalette palette;
    palette.setColor(QPalette::Base, inactiveColour());
    palette.setColor(QPalette::Disabled, QPalette::Text,
                     firstClear(usual.color(QPalette::Disabled, QPalette::Text),
                                usual.color(QPalette::Active, QPalette::Text), inactiveColour()));
    return palette;
}

}  // namespace wynconfig::desktop
