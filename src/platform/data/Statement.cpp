#include "Statement.h"

#include "DataError.h"
#include "DateText.h"
#include "StatementText.h"

#include <cstring>
#include <sqlite3.h>

namespace {

/// After these the engine may end the whole transaction, or the statement alone.
bool isSevere(int result)
{
    const int kind = result & 0xff;
    return kind == SQLITE_FULL || kind == SQLITE_IOERR || kind == SQLITE_NOMEM || kind == SQLITE_CORRUPT;
}

} // namespace

Statement::Statement(sqlite3 *database, const QString &text)
    : m_database(database)
    , m_text(text)
{
    StatementText::check(text);
    const QByteArray bytes = text.toUtf8();
    const char *rest = nullptr;
    if (::sqlite3_prepare_v2(database, bytes.constData(), -1, &m_statement, &rest) != SQLITE_OK)
        throw DataError::fromEngine(database, text);
    if (!m_statement) // nothing but semicolons
        throw DataError::make(DataError::NoStatement, text);
    refuseSecondStatement(rest);
}

Statement::~Statement()
{
    ::sqlite3_finalize(m_statement);
}

void Statement::refuseSecondStatement(const char *rest)
{
    if (rest[std::strspn(rest, " \t\r\n\f;")] == '\0')
        return;
    ::sqlite3_finalize(m_statement);
    throw RuntimeError(DataError::RejectedStatement,
                       QStringLiteral("characters found after the end of the statement"), m_text);
}

void Statement::bind(int index, const FieldValue &value)
{
    int result = SQLITE_OK;
    switch (value.kind()) {
    case FieldValue::Kind::Null:
        result = ::sqlite3_bind_null(m_statement, index);
        break;
    case FieldValue::Kind::Integer:
        result = ::sqlite3_bind_int64(m_statement, index, value.number());
        break;
    case FieldValue::Kind::Real:
        result = ::sqlite3_bind_double(m_statement, index, value.real());
        break;
    case FieldValue::Kind::Text:
    case FieldValue::Kind::Date: {
        const bool isDate = value.kind() == FieldValue::Kind::Date;
        const QByteArray bytes = (isDate ? DateText::store(value.date()) : value.text()).toUtf8();
        result = ::sqlite3_bind_text64(m_statement, index, bytes.constData(), sqlite3_uint64(bytes.size()),
                                       SQLITE_TRANSIENT, SQLITE_UTF8);
        break;
    }
    }
    if (result != SQLITE_OK)
        throw DataError::fromEngine(m_database, m_text);
}

bool Statement::step()
{
    const int result = ::sqlite3_step(m_statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        fail(result);
    return result == SQLITE_ROW;
}

void Statement::fail(int result)
{
    const RuntimeError error = DataError::fromEngine(m_database, m_text); // which a rollback replaces
    if (isSevere(result) && ::sqlite3_get_autocommit(m_database) == 0)
        ::sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr);
    throw error;
}

void Statement::finish()
{
    while (step()) {
    }
}

int Statement::columnCount() const
{
    return ::sqlite3_column_count(m_statement);
}

QString Statement::columnName(int column) const
{
    const char *declared = ::sqlite3_column_origin_name(m_statement, column);
    return QString::fromUtf8(declared ? declared : ::sqlite3_column_name(m_statement, column));
}

QString Statement::tableName(int column) const
{
    return QString::fromUtf8(::sqlite3_column_table_name(m_statement, column));
}

bool Statement::isDateColumn(int column) const
{
    return ::qstricmp(::sqlite3_column_decltype(m_statement, column), "DATETIME") == 0;
}

Statement::Type Statement::type(int column) const
{
    switch (::sqlite3_column_type(m_statement, column)) {
    case SQLITE_INTEGER:
        return Type::Integer;
    case SQLITE_FLOAT:
        return Type::Real;
    case SQLITE_NULL:
        return Type::Null;
    default:
        return Type::Text;
    }
}

qint64 Statement::integer(int column) const
{
    return ::sqlite3_column_int64(m_statement, column);
}

double Statement::real(int column) const
{
    return ::sqlite3_column_double(m_statement, column);
}

QByteArrayView Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(::sqlite3_column_text(m_statement, column));
    return {bytes, ::sqlite3_column_bytes(m_statement, column)};
}
