#include "Statement.h"

#include "DataError.h"
#include "DateText.h"
#include "IdleStatements.h"
#include "PreparedStatement.h"
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

Statement::Statement(sqlite3 *database, const QString &text, const std::shared_ptr<IdleStatements> &idle)
    : m_database(database)
    , m_text(text)
    , m_idle(idle)
{
    const auto number = m_idle ? StatementText::lastNumber(text) : std::nullopt;
    m_preparedText = number ? number->text : text;
    if (m_idle)
        m_prepared = m_idle->take(m_preparedText);
    if (!m_prepared)
        prepare();
    if (number)
        bind(1, number->value);
}

Statement::~Statement()
{
    if (m_idle)
        m_idle->keep(m_preparedText, std::move(m_prepared));
}

void Statement::prepare()
{
    StatementText::check(m_text);
    const QByteArray bytes = m_preparedText.toUtf8();
    const char *rest = nullptr;
    sqlite3_stmt *statement = nullptr;
    if (::sqlite3_prepare_v2(m_database, bytes.constData(), -1, &statement, &rest) != SQLITE_OK)
        throw DataError::fromEngine(m_database, m_text);
    m_prepared = std::make_unique<PreparedStatement>(statement);
    if (!statement) // nothing but semicolons
        throw DataError::make(DataError::NoStatement, m_text);
    refuseSecondStatement(rest);
}

void Statement::refuseSecondStatement(const char *rest) const
{
    if (rest[std::strspn(rest, " \t\r\n\f;")] == '\0')
        return;
    throw RuntimeError(DataError::RejectedStatement,
                       QStringLiteral("characters found after the end of the statement"), m_text);
}

sqlite3_stmt *Statement::handle() const
{
    return m_prepared->handle();
}

void Statement::bind(int index, const FieldValue &value)
{
    int result = SQLITE_OK;
    switch (value.kind()) {
    case FieldValue::Kind::Null:
        result = ::sqlite3_bind_null(handle(), index);
        break;
    case FieldValue::Kind::Integer:
        result = ::sqlite3_bind_int64(handle(), index, value.number());
        break;
    case FieldValue::Kind::Real:
        result = ::sqlite3_bind_double(handle(), index, value.real());
        break;
    case FieldValue::Kind::Text:
    case FieldValue::Kind::Date: {
        const bool isDate = value.kind() == FieldValue::Kind::Date;
        const QByteArray bytes = (isDate ? DateText::store(value.date()) : value.text()).toUtf8();
        result = ::sqlite3_bind_text64(handle(), index, bytes.constData(), sqlite3_uint64(bytes.size()),
                                       SQLITE_TRANSIENT, SQLITE_UTF8);
        break;
    }
    }
    if (result != SQLITE_OK)
        throw DataError::fromEngine(m_database, m_text);
}

bool Statement::step()
{
    const int result = ::sqlite3_step(handle());
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
    return ::sqlite3_column_count(handle());
}

QString Statement::columnName(int column) const
{
    const char *declared = ::sqlite3_column_origin_name(handle(), column);
    return QString::fromUtf8(declared ? declared : ::sqlite3_column_name(handle(), column));
}

QString Statement::tableName(int column) const
{
    return QString::fromUtf8(::sqlite3_column_table_name(handle(), column));
}

bool Statement::isDateColumn(int column) const
{
    return ::qstricmp(::sqlite3_column_decltype(handle(), column), "DATETIME") == 0;
}

Statement::Type Statement::type(int column) const
{
    switch (::sqlite3_column_type(handle(), column)) {
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
    return ::sqlite3_column_int64(handle(), column);
}

double Statement::real(int column) const
{
    return ::sqlite3_column_double(handle(), column);
}

QByteArrayView Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(::sqlite3_column_text(handle(), column));
    return {bytes, ::sqlite3_column_bytes(handle(), column)};
}
