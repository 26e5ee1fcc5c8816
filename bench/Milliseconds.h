#pragma once

#include <QElapsedTimer>
#include <ctime>

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

/// How long \a step keeps a processor busy, which other programs that run meanwhile hardly change.
template<class Step>
double processorMilliseconds(Step &&step)
{
    const std::clock_t before = std::clock();
    step();
    constexpr double perMillisecond = CLOCKS_PER_SEC / 1e3;
    return double(std::clock() - before) / perMillisecond;
}
