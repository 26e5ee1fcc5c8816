#include "PackedRows.h"

#include "DateText.h"
#include "Statement.h"

#include <bit>

using Kind = FieldValue::Kind;

PackedRows::PackedRows(const QList<bool> &isDate)
    : m_isDate(isDate)
{}

void PackedRows::append(const Statement &statement)
{
    for (int column = 0; column < int(m_isDate.size()); ++column)
        m_fields.append(fieldOf(statement, column));
}

void PackedRows::append(const QList<FieldValue> &row)
{
    for (const FieldValue &value : row)
        m_fields.append(fieldOf(value));
}

qsizetype PackedRows::count() const
{
    return m_isDate.isEmpty() ? 0 : m_fields.size() / m_isDate.size();
}

FieldValue PackedRows::at(qsizetype row, int column) const
{
    const Field &field = fieldAt(row, column);
    switch (field.kind) {
    case Kind::Integer:
        return field.number;
    case Kind::Real:
        return std::bit_cast<double>(field.number);
    case Kind::Text:
        return QString::fromUtf8(m_texts.constData() + field.number, qsizetype(field.size));
    case Kind::Date:
        return QDate::fromJulianDay(field.number);
    default:
        return {};
    }
}

PackedRows::Field PackedRows::null()
{
    return {Kind::Null, 0, 0};
}

PackedRows::Field PackedRows::text(QByteArrayView bytes)
{
    const Field field = {Kind::Text, quint32(bytes.size()), m_texts.size()};
    m_texts.append(bytes.data(), bytes.size());
    return field;
}

PackedRows::Field PackedRows::fieldOf(const Statement &statement, int column)
{
    switch (statement.type(column)) {
    case Statement::Type::Integer:
        return {Kind::Integer, 0, statement.integer(column)};
    case Statement::Type::Real:
        return {Kind::Real, 0, std::bit_cast<qint64>(statement.real(column))};
    case Statement::Type::Text: {
        const QByteArrayView bytes = statement.text(column);
        if (!m_isDate[column])
            return text(bytes);
        const auto date = DateText::parseStored(bytes);
        return date ? Field{Kind::Date, 0, date->toJulianDay()} : text(bytes);
    }
    default:
        return null();
    }
}

PackedRows::Field PackedRows::fieldOf(const FieldValue &value)
{
    switch (value.kind()) {
    case Kind::Integer:
        return {Kind::Integer, 0, value.number()};
    case Kind::Real:
        return {Kind::Real, 0, std::bit_cast<qint64>(value.real())};
    case Kind::Text:
        return text(value.text().toUtf8());
    case Kind::Date:
        return {Kind::Date, 0, value.date().toJulianDay()};
    default:
        return null();
    }
}
