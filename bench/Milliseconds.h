#pragma once

#include <QElapsedTimer>

/// How long \a step takes.
template<class Step>
double milliseconds(Step &&step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    constexpr double perMillisecond = 1e6;
    return double(timer.nsecsElapsed()) / perMillisecond;
}
