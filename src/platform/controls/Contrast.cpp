#include "Contrast.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace {

double linear(double part)
{
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// From 0, black, to 1, white, as the eye sees it.
double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor &a, const QColor &b)
{
    const auto [dim, bright] = std::minmax({luminance(a), luminance(b)});
    return (bright + 0.05) / (dim + 0.05);
}
