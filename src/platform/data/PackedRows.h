#pragma once

#include "FieldValue.h"

#include <QByteArray>
#include <QList>

class Statement;

/// The rows of a recordset, packed: 16 bytes a field, and all texts in one array. Tens of thousands of rows
/// are so kept in a few megabytes. Copies share them.
class PackedRows
{
public:
    PackedRows() = default;
    /// \a isDate has an entry for each column.
    explicit PackedRows(const QList<bool> &isDate);

    /// Adds the current row of \a statement.
    void append(const Statement &statement);
    /// Adds \a row, which has a value for each column.
    void append(const QList<FieldValue> &row);

    qsizetype count() const;
    bool isDate(int column) const { return m_isDate[column]; }
    bool isNull(qsizetype row, int column) const
    {
        return fieldAt(row, column).kind == FieldValue::Kind::Null;
    }
    FieldValue at(qsizetype row, int column) const;

private:
    struct Field
    {
        FieldValue::Kind kind;
        quint32 size;  ///< of a text, in bytes
        qint64 number; ///< the number, the bits of the float, the day of the date, or where the text begins
    };

    const Field &fieldAt(qsizetype row, int column) const { return m_fields[row * m_isDate.size() + column]; }
    static Field null();
    Field text(QByteArrayView bytes);
    Field fieldOf(const Statement &statement, int column);
    Field fieldOf(const FieldValue &value);

    QList<bool> m_isDate;
    QList<Field> m_fields;
    QByteArray m_texts;
};
