#pragma once

#include "Operation.h"

#include <QList>

/// What is worth trying on a calculator, with and without its window.
struct EdgeCase
{
    const char *name;
    const char *keys; ///< as CalculatorStep::parse() reads them
    const char *field;
    const char *reported; ///< as BareCalculator keeps it, joined by commas
    double result;
    Operation lastOperation;
};

const QList<EdgeCase> &edgeCases();
