#include "Calculator.h"

#include "CalculatorDisplay.h"
#include "CheckedFloat.h"
#include "Numbers.h"
#include "RuntimeError.h"

#include <array>

namespace {

using DecimalPoint = CalculatorState::DecimalPoint;

constexpr int defaultDecimals = 2;

/// Half a unit of the last place kept, by the number of places.
constexpr std::array downAdjustments = {-0.5,      -0.05,      -0.005,      -0.0005,     -0.00005,
                                        -0.000005, -0.0000005, -0.00000005, -0.000000005};

int decimalsOf(int row)
{
    return row >= 0 && row < int(downAdjustments.size()) ? row : defaultDecimals;
}

double adjustmentOf(int row, bool up)
{
    return up ? 0 : downAdjustments[decimalsOf(row)];
}

} // namespace

Calculator::Calculator(CalculatorDisplay &display)
    : m_display(display)
{}

void Calculator::reset()
{
    m_state.LastOperation = Operation::None;
    m_state.Result = 0;
    m_state.RoundingAdjustment = 0;
    m_state.Decimals = defaultDecimals;
}

void Calculator::enterDigit(int digit)
{
    m_display.setText(m_display.text() + QString::number(digit));
}

void Calculator::enterDecimalPoint()
{
    const QString text = m_display.text();
    if (m_state.DecimalPointState == DecimalPoint::Used) {
        m_display.showSecondPointBox();
    } else if (text.isEmpty()) {
        m_display.setText(QStringLiteral("0.")); // Intended: this point does not count as used
    } else {
        m_display.setText(text + u'.');
        m_state.DecimalPointState = DecimalPoint::Used;
    }
}

void Calculator::press(Operation key)
{
    // Intended: the result that is shown may have a point already, and the next digits are appended to it.
    m_state.DecimalPointState = DecimalPoint::NotUsed;
    switch (key) {
    case Operation::Equals:
        pressEquals();
        break;
    case Operation::Percent:
        pressPercent();
        break;
    case Operation::None:
        clear();
        break;
    default:
        pressOperator(key);
    }
}

void Calculator::pressEquals()
{
    pressOperator(Operation::Equals);
    roundAndShow();
}

void Calculator::pressOperator(Operation key)
{
    readOperand();
    Calculate(m_state.LastOperation);
    m_state.LastOperation = key;
}

void Calculator::pressPercent()
{
    readOperand();
    m_state.PercentBase = m_state.LastOperation;
    // Intended: the next operation key computes the percentage once more, from the result that is shown.
    m_state.LastOperation = Operation::Percent;
    Calculate(Operation::Percent);
}

void Calculator::clear()
{
    m_display.setText({});
    m_state.Result = 0;
    m_state.LastOperation = Operation::None;
}

void Calculator::chooseDecimals(int row, bool up)
{
    m_state.Decimals = decimalsOf(row);
    chooseRounding(row, up);
}

void Calculator::chooseRounding(int row, bool up)
{
    m_state.RoundingAdjustment = adjustmentOf(row, up);
}

void Calculator::readOperand()
{
    m_state.Operand = Numbers::leadingNumber(m_display.text());
}

void Calculator::Calculate(Operation operation)
{
    m_display.setText({});
    try {
        compute(operation);
    } catch (const RuntimeError &error) {
        m_display.showCalculationErrorBox(error);
    }
}

void Calculator::compute(Operation operation)
{
    const CheckedFloat result = m_state.Result;
    const CheckedFloat operand = m_state.Operand;
    switch (operation) {
    case Operation::None:
        store(operand);
        break;
    case Operation::Add:
        store(operand + result);
        break;
    case Operation::Subtract:
        store(result - operand);
        break;
    case Operation::Multiply:
        store(operand * result);
        break;
    case Operation::Divide:
        store(result / operand);
        break;
    case Operation::Percent:
        computePercent();
        break;
    case Operation::Equals: // Intended: a number entered after "=" is ignored
        break;
    }
}

void Calculator::computePercent()
{
    const CheckedFloat result = m_state.Result;
    const CheckedFloat operand = m_state.Operand;
    switch (m_state.PercentBase) {
    case Operation::Add:
        store(result + operand * result / 100);
        break;
    case Operation::Subtract:
        store(result - operand * result / 100);
        break;
    case Operation::Multiply:
        store(operand * result / 100);
        break;
    case Operation::Divide:
        store(result / operand * 100);
        break;
    default: // Intended: without a base the field stays blank
        return;
    }
    roundAndShow();
}

/// The value is stored before its error is raised.
void Calculator::store(const CheckedFloat &value)
{
    m_state.Result = value.value();
    if (value.error() != 0)
        throw RuntimeError(value.error());
}

void Calculator::roundAndShow()
{
    // Intended: the adjustment becomes part of the total, so pressing "=" again may lower it again.
    m_state.Result += m_state.RoundingAdjustment;
    m_state.Result = Numbers::rounded(m_state.Result, m_state.Decimals);
    m_display.setText(Numbers::doubleText(m_state.Result));
}
