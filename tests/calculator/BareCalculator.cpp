#include "BareCalculator.h"

#include "RuntimeError.h"

BareCalculator::BareCalculator()
{
    calculator.chooseDecimals(m_row, m_up);
    calculator.reset();
    calculator.chooseRounding(m_row, m_up);
}

void BareCalculator::perform(const QString &keys)
{
    for (const CalculatorStep &step : CalculatorStep::parse(keys))
        perform(step);
}

void BareCalculator::perform(const CalculatorStep &step)
{
    switch (step.kind) {
    case CalculatorStep::Digit:
        calculator.enterDigit(step.index);
        break;
    case CalculatorStep::Point:
        calculator.enterDecimalPoint();
        break;
    case CalculatorStep::Action:
        press(step.index);
        break;
    case CalculatorStep::Type:
        field = step.text;
        break;
    case CalculatorStep::Decimals:
        m_row = step.index;
        calculator.chooseDecimals(m_row, m_up);
        break;
    case CalculatorStep::Option:
        m_up = step.index == 0;
        calculator.chooseRounding(m_row, m_up);
        break;
    }
}

void BareCalculator::press(int key)
{
    try {
        calculator.press(Operation(key));
    } catch (const RuntimeError &error) {
        report(QStringLiteral("thrown %1").arg(error.number()));
    }
}

void BareCalculator::showSecondPointBox()
{
    report(QStringLiteral("point"));
}

void BareCalculator::showCalculationErrorBox(const RuntimeError &error)
{
    report(QStringLiteral("error %1").arg(error.number()));
}

void BareCalculator::report(const QString &what)
{
    reported.append(what);
    fieldWhenReported.append(field);
}
