#include "FieldValue.h"

#include "DateText.h"
#include "Numbers.h"
#include "RuntimeError.h"

#include <QLocale>

namespace {

[[noreturn]] void refuseNull()
{
    throw RuntimeError(ErrorNumber::InvalidUseOfNull);
}

[[noreturn]] void refuseType(const QString &text)
{
    throw RuntimeError(ErrorNumber::TypeMismatch, {}, text);
}

} // namespace

FieldValue::FieldValue(int number)
    : m_data(qint64(number))
{}

FieldValue::FieldValue(qint64 number)
    : m_data(number)
{}

FieldValue::FieldValue(double number)
    : m_data(number)
{}

FieldValue::FieldValue(const QString &text)
    : m_data(text)
{}

FieldValue::FieldValue(QDate date)
    : m_data(date)
{}

bool FieldValue::isEmpty() const
{
    const QString *text = std::get_if<QString>(&m_data);
    return isNull() || (text && text->isEmpty());
}

QString FieldValue::text() const
{
    if (const auto *text = std::get_if<QString>(&m_data))
        return *text;
    if (const auto *number = std::get_if<qint64>(&m_data))
        return QString::number(*number);
    if (const auto *number = std::get_if<double>(&m_data))
        return Numbers::doubleText(*number);
    if (const auto *date = std::get_if<QDate>(&m_data))
        return DateText::show(*date);
    refuseNull();
}

QString FieldValue::textOrEmpty() const
{
    return isNull() ? QString() : text();
}

qint64 FieldValue::number() const
{
    if (const auto *number = std::get_if<qint64>(&m_data))
        return *number;
    const QString digits = text();
    bool isWhole = false;
    const qint64 number = QLocale::c().toLongLong(digits, &isWhole);
    if (!isWhole)
        refuseType(digits);
    return number;
}

QDate FieldValue::date() const
{
    if (const auto *date = std::get_if<QDate>(&m_data))
        return *date;
    const QString words = text();
    if (const auto date = DateText::parse(words))
        return *date;
    refuseType(words);
}
