#include "SizeSteps.h"

#include "RuntimeError.h"

#include <cmath>
#include <limits>

namespace {

qint16 toInteger(double value)
{
    const double rounded = std::nearbyint(value);
    if (!(std::fabs(rounded) <= std::numeric_limits<qint16>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return qint16(rounded);
}

} // namespace

int SizeSteps::percent(int row)
{
    constexpr int reduced[] = {25, 50};
    return row < wholeRow ? reduced[row] : (row - 1) * 100;
}

ImageSize SizeSteps::atPercent(ImageSize own, int row)
{
    if (row == 0)
        return {own.width / 4, own.height / 4};
    if (row == 1)
        return {own.width / 2, own.height / 2};
    const auto times = float(row - 1);
    return {own.width * times, own.height * times};
}

ImageSize SizeSteps::fromRatio(ImageSize own, qint16 across, qint16 down)
{
    const double height = double(down) / across * double(own.width);
    return {own.width, float(toInteger(height))};
}

ImageSize SizeSteps::squared(ImageSize size)
{
    const bool isWide = size.width > size.height;
    const float difference = isWide ? size.width - size.height : size.height - size.width;
    const auto half = float(toInteger(toInteger(double(difference)) / 2.0));
    return isWide ? ImageSize{size.width - half, size.height + half}
                  : ImageSize{size.width + half, size.height - half};
}
