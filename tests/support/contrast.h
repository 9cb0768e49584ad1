// How well a text can be read on its ground. Reckoned apart from the view, which it judges.
#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace wynconfig {

/// The luminance of a colour as accessibility guidelines define it, from 0 to 1.
inline double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Contrast of two colours, from 1 to 21; texts need 4.5.
inline double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

}  // namespace wynconfig
