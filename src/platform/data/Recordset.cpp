#include "Recordset.h"

#include "Connection.h"
#include "DataError.h"
#include "Statement.h"

#include <algorithm>
#include <utility>

void Recordset::open(const QString &statement, Connection &connection, Kind kind)
{
    if (isOpen())
        throw DataError::make(DataError::AlreadyOpen, statement);
    const auto query = connection.prepare(statement);
    bool isRow = query->step(); // which also tells a statement that was kept of changes of the tables
    QList<Field> fields;
    QList<bool> isDate;
    for (int column = 0; column < query->columnCount(); ++column) {
        fields.append({query->columnName(column), query->tableName(column)});
        isDate.append(query->isDateColumn(column));
    }
    PackedRows rows(isDate);
    for (; isRow; isRow = query->step())
        rows.append(*query);

    m_connection = &connection;
    m_kind = kind;
    m_fields = std::move(fields);
    m_rows = std::move(rows);
    m_row = 0;
}

void Recordset::close()
{
    requireOpen();
    if (m_newRow)
        throw DataError::make(DataError::WrongMoment);
    *this = Recordset();
}

bool Recordset::bof() const
{
    requireOpen();
    return m_rows.count() == 0;
}

bool Recordset::eof() const
{
    requireOpen();
    return m_row >= m_rows.count();
}

void Recordset::moveNext()
{
    if (eof())
        throw DataError::make(DataError::NoCurrentRow);
    ++m_row;
}

void Recordset::moveLast()
{
    if (bof())
        throw DataError::make(DataError::NoCurrentRow);
    m_row = m_rows.count() - 1;
}

int Recordset::fieldCount() const
{
    requireOpen();
    return int(m_fields.size());
}

QString Recordset::fieldName(int index) const
{
    if (index < 0 || index >= fieldCount())
        throw DataError::make(DataError::NoSuchField, QString::number(index));
    return m_fields[index].name;
}

FieldValue Recordset::field(QStringView name) const
{
    return field(indexOf(name));
}

FieldValue Recordset::field(int index) const
{
    if (index < 0 || index >= fieldCount())
        throw DataError::make(DataError::NoSuchField, QString::number(index));
    if (m_newRow)
        return m_newRow->at(index);
    if (eof())
        throw DataError::make(DataError::NoCurrentRow, m_fields[index].name);
    return m_rows.at(m_row, index);
}

const PackedRows &Recordset::rows() const
{
    requireOpen();
    return m_rows;
}

void Recordset::addNew()
{
    requireOpen();
    const bool isOneTable = std::all_of(m_fields.cbegin(), m_fields.cend(), [this](const Field &field) {
        return !field.table.isEmpty() && field.table == m_fields.constFirst().table;
    });
    if (m_kind != Kind::Updatable || m_fields.isEmpty() || !isOneTable)
        throw DataError::make(DataError::NotUpdatable);
    m_newRow = QList<FieldValue>(m_fields.size());
}

void Recordset::setField(QStringView name, const FieldValue &value)
{
    const int index = indexOf(name);
    if (!m_newRow)
        throw DataError::make(DataError::WrongMoment, name.toString());
    const bool isDateAsText = m_rows.isDate(index) && value.kind() == FieldValue::Kind::Text;
    (*m_newRow)[index] = isDateAsText ? FieldValue(value.date()) : value;
}

void Recordset::update()
{
    requireOpen();
    if (!m_newRow)
        throw DataError::make(DataError::WrongMoment);
    const auto insert = m_connection->prepare(insertStatement());
    for (int index = 0; index < int(m_newRow->size()); ++index)
        insert->bind(index + 1, m_newRow->at(index));
    insert->finish();
    m_rows.append(*m_newRow);
    m_newRow.reset();
    m_row = m_rows.count() - 1;
}

void Recordset::requireOpen() const
{
    if (!isOpen())
        throw DataError::make(DataError::Closed);
}

int Recordset::indexOf(QStringView name) const
{
    requireOpen();
    for (int index = 0; index < int(m_fields.size()); ++index) {
        if (name.compare(m_fields[index].name, Qt::CaseInsensitive) == 0)
            return index;
    }
    throw DataError::make(DataError::NoSuchField, name.toString());
}

QString Recordset::insertStatement() const
{
    QStringList names;
    for (const Field &field : m_fields)
        names.append(u'"' + field.name + u'"');
    const QStringList values(m_fields.size(), QStringLiteral("?"));
    return QStringLiteral("insert into \"%1\"(%2) values(%3)")
        .arg(m_fields.constFirst().table, names.join(u','), values.join(u','));
}
