#pragma once

#include "CalculatorState.h"

class CalculatorDisplay;
class CheckedFloat;

/// The calculator behind its keys: what is entered, which operation waits, how results are rounded. What the
/// field shows is what the next key reads back. It has no window; field and messages are the display's.
class Calculator
{
public:
    explicit Calculator(CalculatorDisplay &display);

    /// As after switching on: nothing waits, two decimals, no adjustment. The field is left alone.
    void reset();

    /// Appends \a digit, 0 to 9, to whatever the field shows.
    void enterDigit(int digit);
    void enterDecimalPoint();

    /// The action key of \a key. A float error is shown by the display and leaves its infinity or
    /// not-a-number as the Result. To round that at "=" throws RuntimeError 6: the field is blank then,
    /// everything else is done.
    void press(Operation key);

    /// \a row is the number of places chosen, 0 to 8 (anything else counts as 2), \a up the choice of
    /// rounding. What is shown stays.
    void chooseDecimals(int row, bool up);
    /// The same, with the places left as they are.
    void chooseRounding(int row, bool up);

    const CalculatorState &state() const { return m_state; }

private:
    void pressEquals();
    void pressOperator(Operation key);
    void pressPercent();
    void clear();

    void readOperand();
    void Calculate(Operation operation);
    void compute(Operation operation);
    void computePercent();
    void store(const CheckedFloat &value);
    void roundAndShow();

    CalculatorDisplay &m_display;
    CalculatorState m_state;
};
