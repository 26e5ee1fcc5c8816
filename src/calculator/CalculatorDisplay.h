#pragma once

#include <QString>

class RuntimeError;

/// What a calculator shows and says.
class CalculatorDisplay
{
public:
    virtual ~CalculatorDisplay() = default;

    /// The field, at the same time entry and result.
    virtual QString text() const = 0;
    virtual void setText(const QString &text) = 0;

    virtual void tellSecondPoint() = 0;
    virtual void tellCalculationError(const RuntimeError &error) = 0;
};
