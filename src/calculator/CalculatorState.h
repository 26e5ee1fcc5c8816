#pragma once

#include "Operation.h"

/// All that a calculator remembers beside the text of its field.
struct CalculatorState
{
    enum class DecimalPoint { NotUsed, Used };

    double Result = 0;                         ///< the running total, left operand of every operation
    double Operand = 0;                        ///< the right operand, read from the field
    Operation LastOperation = Operation::None; ///< waits for its right operand
    Operation PercentBase = Operation::None;   ///< what percent applies to
    DecimalPoint DecimalPointState =
        DecimalPoint::NotUsed;     ///< whether the number being entered has its point
    int Decimals = 2;              ///< places that results are rounded to, 0 to 8
    double RoundingAdjustment = 0; ///< added before rounding: 0 for "Up", negative for "Down"
};
