#include "Numbers.h"

#include "RuntimeError.h"

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int singleDigits = 7;
constexpr int doubleDigits = 15;

QString shortText(double value, int digits)
{
    return QString::number(value, 'g', digits).toUpper();
}

/// \a value as its decimals show it: 213.49999999999997, which is 2.135 times 100, is 213.5. A number whose
/// decimals are all whole stays as it is.
double inDecimals(double value)
{
    constexpr double allWhole = 1e15;
    return std::fabs(value) < allWhole ? shortText(value, doubleDigits).toDouble() : value;
}

QString withoutBlanks(QString text)
{
    static const QRegularExpression blanks(QStringLiteral("[ \\t\\r\\n]"));
    return text.remove(blanks);
}

} // namespace

QString Numbers::singleText(float value)
{
    QString text = shortText(double(value), singleDigits);
    if (text.startsWith(QLatin1String("0.")))
        text.remove(0, 1);
    else if (text.startsWith(QLatin1String("-0.")))
        text.remove(1, 1);
    return text;
}

QString Numbers::doubleText(double value)
{
    return shortText(value, doubleDigits);
}

double Numbers::leadingNumber(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("^[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[Ee][+-]?[0-9]+)?"));
    const double value = number.match(withoutBlanks(text)).captured().toDouble();
    return std::clamp(value, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

double Numbers::rounded(double value, int places)
{
    if (!std::isfinite(value))
        throw RuntimeError(ErrorNumber::Overflow);
    const double scale = std::pow(10.0, places);
    const double scaled = value * scale;
    if (std::isinf(scaled))
        return value; // so large a number has no decimals to lose
    return std::nearbyint(inDecimals(scaled)) / scale;
}

double Numbers::toDouble(const QString &text)
{
    bool ok = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &ok);
    // Qt returns an infinity and not ok for too large a number, an infinity and ok for the word "inf".
    if (std::isnan(value) || ok == std::isinf(value))
        throw RuntimeError(ErrorNumber::TypeMismatch, {}, text);
    if (std::isinf(value))
        throw RuntimeError(ErrorNumber::Overflow, {}, text);
    return value;
}

float Numbers::toSingle(const QString &text)
{
    const double value = toDouble(text);
    if (std::fabs(value) > double(std::numeric_limits<float>::max()))
        throw RuntimeError(ErrorNumber::Overflow, {}, text);
    return float(value);
}

qint16 Numbers::toInteger(const QString &text)
{
    const double value = std::nearbyint(toDouble(text));
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow, {}, text);
    return qint16(value);
}
