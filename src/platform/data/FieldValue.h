#pragma once

#include <QDate>
#include <QString>
#include <variant>

/// The value of one field of a row: NULL, a whole number, a float, a text or a date.
class FieldValue
{
public:
    enum class Kind { Null, Integer, Real, Text, Date };

    FieldValue() = default; ///< NULL
    FieldValue(int number);
    FieldValue(qint64 number);
    FieldValue(double number);
    FieldValue(const QString &text);
    FieldValue(QDate date);

    Kind kind() const { return Kind(m_data.index()); }
    bool isNull() const { return kind() == Kind::Null; }
    /// NULL, or a text without characters.
    bool isEmpty() const;

    /// A number in decimal, a date as "05-Sep-1999". Throws RuntimeError 94 for NULL.
    QString text() const;
    /// The text, or an empty one for NULL.
    QString textOrEmpty() const;
    /// A text is read as a whole number. Throws RuntimeError 94 for NULL, 13 for what is no whole number.
    qint64 number() const;
    double real() const { return std::get<double>(m_data); } ///< only for Kind::Real
    /// A text is read as DateText has it. Throws RuntimeError 94 for NULL, 13 for what is no date.
    QDate date() const;

    friend bool operator==(const FieldValue &, const FieldValue &) = default;

private:
    /// In the order of Kind.
    std::variant<std::monostate, qint64, double, QString, QDate> m_data;
};
