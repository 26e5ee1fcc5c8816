#include "LengthUnit.h"

#include "Numbers.h"

namespace {

double size(double twips, float perPixel)
{
    return twips == LengthUnit::ofDisplay ? double(perPixel) : twips;
}

} // namespace

float LengthUnit::of(float length, float perPixel) const
{
    return float(double(length) / size(twips, perPixel));
}

QString LengthUnit::text(float length, float perPixel) const
{
    return Numbers::singleText(of(length, perPixel));
}

float LengthUnit::toTwips(float value, float perPixel) const
{
    return float(double(value) * size(twips, perPixel));
}
