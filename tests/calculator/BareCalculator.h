#pragma once

#include "Calculator.h"
#include "CalculatorDisplay.h"
#include "CalculatorStep.h"

#include <QStringList>

/// A calculator without a window, set up as the window's load does. What it reports is kept: "point", "error
/// 11", and "thrown 6" for what its keys throw.
class BareCalculator : private CalculatorDisplay
{
public:
    BareCalculator();

    void perform(const CalculatorStep &step);
    void perform(const QString &keys);

    QString field;
    QStringList reported;
    QStringList fieldWhenReported;
    Calculator calculator{*this};

    const CalculatorState &state() const { return calculator.state(); }

private:
    void press(int key);

    QString text() const override { return field; }
    void setText(const QString &text) override { field = text; }
    void showSecondPointBox() override;
    void showCalculationErrorBox(const RuntimeError &error) override;
    void report(const QString &what);

    int m_row = 2;
    bool m_up = false;
};
