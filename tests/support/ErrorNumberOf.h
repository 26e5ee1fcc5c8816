#pragma once

#include "RuntimeError.h"

/// The number of the RuntimeError that \a step throws; 0 when it throws none.
template<class Step>
int errorNumberOf(Step &&step)
{
    try {
        step();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}
