#include "ColorNumber.h"

int ColorNumber::of(const QColor &color)
{
    return color.red() | color.green() << 8 | color.blue() << 16;
}

QColor ColorNumber::toColor(int number)
{
    return QColor(number & 0xFF, number >> 8 & 0xFF, number >> 16 & 0xFF);
}
