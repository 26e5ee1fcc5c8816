#include "ProgressBar.h"

#include "RuntimeError.h"

namespace {

void require(bool isAllowed)
{
    if (!isAllowed)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

} // namespace

ProgressBar::ProgressBar(QWidget *parent)
    : QProgressBar(parent)
{
    setTextVisible(false);
    QProgressBar::setValue(minimum());
}

void ProgressBar::setMin(int min)
{
    require(min < Max());
    const int value = qMax(Value(), min); // Qt would put a value outside back to none
    setRange(min, Max());
    QProgressBar::setValue(value);
}

void ProgressBar::setMax(int max)
{
    require(max > Min());
    const int value = qMin(Value(), max);
    setRange(Min(), max);
    QProgressBar::setValue(value);
}

void ProgressBar::setValue(int value)
{
    require(value >= Min() && value <= Max());
    QProgressBar::setValue(value);
}
