#include "CountingPause.h"

namespace {

int lastCount = CountingPause::designedLength;

} // namespace

void CountingPause::run()
{
    volatile int count = 1; // or the loop would be optimized away
    while (count <= lastCount)
        count = count + 1;
}

void CountingPause::setLength(int length)
{
    lastCount = length;
}
