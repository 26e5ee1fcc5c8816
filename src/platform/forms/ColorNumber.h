#pragma once

#include <QColor>

/// Colours as the numbers 0xBBGGRR that dialogs and controls use.
namespace ColorNumber {

int of(const QColor &color);
QColor toColor(int number);

} // namespace ColorNumber
