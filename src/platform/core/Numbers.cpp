#include "Numbers.h"

#include "RuntimeError.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace {

constexpr int singleDigits = 7;

double toDouble(const QString &text)
{
    bool ok = false;
    const double value = QLocale::c().toDouble(text.trimmed(), &ok);
    // Too large a number comes as an infinity that is not ok, the word "inf" as one that is.
    if (std::isnan(value) || ok == std::isinf(value))
        throw RuntimeError(ErrorNumber::TypeMismatch, {}, text);
    return value;
}

} // namespace

QString Numbers::singleText(float value)
{
    QString text = QString::number(double(value), 'g', singleDigits).toUpper();
    if (text.startsWith(QLatin1String("0.")))
        text.remove(0, 1);
    else if (text.startsWith(QLatin1String("-0.")))
        text.remove(1, 1);
    return text;
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
