#pragma once

#include "FieldValue.h"
#include "PackedRows.h"

#include <QStringList>
#include <QStringView>
#include <optional>

class Connection;

/// The rows that a statement gives, walked from the first to the last, and new rows for its table.
///
/// The rows are read whole when the recordset is opened, so that it holds no lock and does not see later
/// changes. The connection has to outlive it.
///
/// The functions throw RuntimeError with the numbers of DataError.
class Recordset
{
public:
    enum class Kind {
        Default,   ///< to read
        Updatable, ///< to read and to add rows to the one table that the statement reads
    };

    /// Throws DataError::AlreadyOpen until it has been closed.
    void open(const QString &statement, Connection &connection, Kind kind = Kind::Default);
    /// Throws DataError::Closed, or WrongMoment between addNew and update.
    void close();
    bool isOpen() const { return m_connection != nullptr; }

    /// True when there is no row.
    bool bof() const;
    /// True behind the last row, and when there is none.
    bool eof() const;
    /// Throws DataError::NoCurrentRow behind the last row.
    void moveNext();
    /// Throws DataError::NoCurrentRow when there is no row.
    void moveLast();

    int fieldCount() const;
    /// As the table spells it, or the text of an expression.
    QString fieldName(int index) const;
    /// The current row's value; between addNew and update the new row's. \a name goes without case. Throws
    /// DataError::NoSuchField or NoCurrentRow.
    FieldValue field(QStringView name) const;
    FieldValue field(int index) const;
    /// All rows, which outlive the recordset.
    const PackedRows &rows() const;

    /// Begins a new row, all of it NULL; one that was begun before is dropped. Throws
    /// DataError::NotUpdatable.
    void addNew();
    /// A text for a date is read as DateText has it; RuntimeError 13 for what is no date. Throws
    /// DataError::WrongMoment without addNew.
    void setField(QStringView name, const FieldValue &value);
    /// Stores the new row, which becomes the last one and the current one. After a failure the table is
    /// unchanged and the new row is still there. Throws DataError::WrongMoment without addNew.
    void update();

private:
    struct Field
    {
        QString name;
        QString table; ///< empty for an expression
    };

    void requireOpen() const;
    int indexOf(QStringView name) const;
    QString insertStatement() const;

    Connection *m_connection = nullptr; ///< null while closed
    Kind m_kind = Kind::Default;
    QList<Field> m_fields;
    PackedRows m_rows;
    qsizetype m_row = 0;
    std::optional<QList<FieldValue>> m_newRow;
};
