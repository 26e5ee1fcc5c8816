#pragma once

#include <QString>

/// A unit in which the window's lengths are shown.
struct LengthUnit
{
    static constexpr double ofDisplay = 0;

    double twips; ///< in one unit; ofDisplay for the display's pixels

    /// \a length, in twips, as a 32-bit float in this unit. \a perPixel is what the display has.
    float of(float length, float perPixel) const;
    /// The text of that: its shortest decimal form, 7 digits at most.
    QString text(float length, float perPixel) const;
    /// The twips in \a value units.
    float toTwips(float value, float perPixel) const;
};
