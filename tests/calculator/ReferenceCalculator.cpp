#include "ReferenceCalculator.h"

#include <array>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

constexpr std::array<double, 9> adjustments = {-0.5,      -0.05,      -0.005,      -0.0005,     -0.00005,
                                               -0.000005, -0.0000005, -0.00000005, -0.000000005};
constexpr std::array<double, 9> powers = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

/// Operations one by one, until the processor's status shows an error.
class Processor
{
public:
    double operator()(double left, char operation, double right)
    {
        const volatile double a = left;
        const volatile double b = right;
        std::feclearexcept(FE_ALL_EXCEPT);
        volatile double result = 0;
        if (operation == '+')
            result = a + b;
        else if (operation == '-')
            result = a - b;
        else if (operation == '*')
            result = a * b;
        else
            result = a / b;
        if (error == 0 && std::fetestexcept(FE_DIVBYZERO))
            error = 11;
        else if (error == 0 && std::fetestexcept(FE_INVALID | FE_OVERFLOW))
            error = 6;
        return result;
    }

    int error = 0;
};

QString errorText(int number)
{
    return QStringLiteral("error %1").arg(number);
}

} // namespace

ReferenceCalculator::ReferenceCalculator()
{
    settings();
}

void ReferenceCalculator::perform(const CalculatorStep &step)
{
    switch (step.kind) {
    case CalculatorStep::Digit:
        cmddigit(step.index);
        break;
    case CalculatorStep::Point:
        cmddecimal();
        break;
    case CalculatorStep::Action:
        cmdaction(step.index);
        break;
    case CalculatorStep::Type:
        txtresult = step.text;
        break;
    case CalculatorStep::Decimals:
        m_row = step.index;
        Decimals = m_row;
        settings();
        break;
    case CalculatorStep::Option:
        m_up = step.index == 0;
        settings();
        break;
    }
}

void ReferenceCalculator::settings()
{
    RoundingAdjustment = m_up ? 0 : adjustments.at(std::size_t(m_row));
}

double ReferenceCalculator::number(const QString &text)
{
    std::string found;
    std::string candidate;
    bool digits = false;
    bool point = false;
    bool exponent = false;
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u == u' ' || u == u'\t' || u == u'\n' || u == u'\r')
            continue;
        const char last = candidate.empty() ? ' ' : candidate.back();
        const bool isDigit = u >= u'0' && u <= u'9';
        const bool isSign = (u == u'+' || u == u'-') && (candidate.empty() || last == 'E');
        const bool isPoint = u == u'.' && !point && !exponent;
        const bool isExponent = (u == u'E' || u == u'e') && digits && !exponent;
        if (!isDigit && !isSign && !isPoint && !isExponent)
            break;
        point = point || isPoint;
        exponent = exponent || isExponent;
        digits = digits || isDigit;
        candidate += isExponent ? 'E' : char(u);
        if (isDigit || (isPoint && digits))
            found = candidate;
    }
    if (found.starts_with('+'))
        found.erase(0, 1);
    double value = 0;
    const auto [end, code] = std::from_chars(found.data(), found.data() + found.size(), value);
    if (code == std::errc::result_out_of_range) {
        const bool tiny = found.find("E-") != std::string::npos;
        value = tiny ? 0 : std::copysign(std::numeric_limits<double>::max(), found[0] == '-' ? -1.0 : 1.0);
    }
    return value;
}

QString ReferenceCalculator::shown(double value)
{
    if (value == 0)
        return QStringLiteral("0");
    std::array<char, 64> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 15);
    return QString::fromLatin1(text.data(), result.ptr - text.data()).toUpper();
}

void ReferenceCalculator::cmddigit(int index)
{
    txtresult += QString::number(index);
}

void ReferenceCalculator::cmddecimal()
{
    if (DecimalPointState == QLatin1String("Used")) {
        reported.append(QStringLiteral("point"));
        return;
    }
    if (txtresult.isEmpty()) {
        txtresult = QStringLiteral("0.");
        return;
    }
    txtresult += QLatin1String(".");
    DecimalPointState = QStringLiteral("Used");
}

void ReferenceCalculator::cmdaction(int index)
{
    static const std::array<QString, 5> operators = {QStringLiteral("="), QStringLiteral("+"),
                                                     QStringLiteral("-"), QStringLiteral("*"),
                                                     QStringLiteral("/")};
    DecimalPointState = QStringLiteral("NotUsed");
    if (index == 6) {
        txtresult.clear();
        Result = 0;
        LastOperation = QStringLiteral("None");
        return;
    }
    Operand = number(txtresult);
    if (index == 5) {
        PercentBase = LastOperation;
        LastOperation = QStringLiteral("%");
        Calculate(LastOperation);
        return;
    }
    Calculate(LastOperation);
    LastOperation = operators.at(std::size_t(index));
    if (index == 0 && !round(Result + RoundingAdjustment))
        reported.append(QStringLiteral("thrown 6"));
}

void ReferenceCalculator::Calculate(const QString &operation)
{
    txtresult.clear();
    Processor compute;
    if (operation == QLatin1String("None"))
        Result = Operand;
    else if (operation == QLatin1String("+"))
        Result = compute(Operand, '+', Result);
    else if (operation == QLatin1String("-"))
        Result = compute(Result, '-', Operand);
    else if (operation == QLatin1String("*"))
        Result = compute(Operand, '*', Result);
    else if (operation == QLatin1String("/"))
        Result = compute(Result, '/', Operand);
    else if (operation == QLatin1String("%"))
        return percent();
    if (compute.error != 0)
        reported.append(errorText(compute.error));
}

void ReferenceCalculator::percent()
{
    Processor compute;
    const auto share = [&] { return compute(compute(Operand, '*', Result), '/', 100); };
    if (PercentBase == QLatin1String("+"))
        Result = compute(Result, '+', share());
    else if (PercentBase == QLatin1String("-"))
        Result = compute(Result, '-', share());
    else if (PercentBase == QLatin1String("*"))
        Result = share();
    else if (PercentBase == QLatin1String("/"))
        Result = compute(compute(Result, '/', Operand), '*', 100);
    else
        return;
    if (compute.error != 0)
        reported.append(errorText(compute.error));
    else if (!round(Result + RoundingAdjustment))
        reported.append(errorText(6));
}

/// False for what cannot be rounded, which stays the Result.
bool ReferenceCalculator::round(double adjusted)
{
    Result = adjusted;
    if (!std::isfinite(adjusted))
        return false;
    const double power = powers.at(std::size_t(Decimals));
    double scaled = adjusted * power;
    if (std::isfinite(scaled)) {
        if (std::fabs(scaled) < 1e15) // a half is what fifteen digits show as one
            scaled = number(shown(scaled));
        const double below = std::floor(scaled);
        const double rest = scaled - below;
        const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
        Result = std::copysign((up ? below + 1 : below) / power, adjusted);
    }
    txtresult = shown(Result);
    return true;
}
