#pragma once

#include <QtGlobal>

/// Lengths on windows are twips, 1440 to the inch. They become pixels at the edge, by the screen's logical
/// resolution (dots per inch; 15 twips to the pixel at 96).
namespace Twips {

inline constexpr int perInch = 1440;
inline constexpr int perPoint = 20;

inline int toPixels(double twips, double dpi)
{
    return qRound(twips * dpi / perInch);
}

inline double fromPixels(double pixels, double dpi)
{
    return pixels * perInch / dpi;
}

} // namespace Twips
