#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

/// From 0, black, to 1, white, as the eye sees it.
inline double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1, none, to 21, black on white.
inline double contrast(const QColor &a, const QColor &b)
{
    const double bright = std::max(luminance(a), luminance(b));
    const double dim = std::min(luminance(a), luminance(b));
    return (bright + 0.05) / (dim + 0.05);
}
