#pragma once

#include <QString>

class RuntimeError;

/// The output of a calculator: its field and its message boxes.
class CalculatorDisplay
{
public:
    virtual ~CalculatorDisplay() = default;

    /// The field, at the same time entry and result.
    virtual QString text() const = 0;
    virtual void setText(const QString &text) = 0;

    virtual void showSecondPointBox() = 0;
    virtual void showCalculationErrorBox(const RuntimeError &error) = 0;
};
