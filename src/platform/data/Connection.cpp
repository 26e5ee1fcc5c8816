#include "Connection.h"

#include "DataError.h"
#include "DateFunctions.h"
#include "FileNames.h"
#include "IdleStatements.h"
#include "Statement.h"
#include "TextCollation.h"

#include <sqlite3.h>
#include <utility>

namespace {

constexpr int waitMs = 5000;         // for another process that writes
constexpr int cacheKiB = 16000;      // room for the tables of tens of thousands of contacts
constexpr int longestText = 1 << 24; // bytes; no honest field comes near
constexpr int longestStatement = 1 << 20;
constexpr int deepestStatement = 100;

/// A connection that has not succeeded has a handle all the same, which holds the reason.
sqlite3 *opened(const QString &path, int flags)
{
    sqlite3 *database = nullptr;
    const QByteArray name = FileNames::toBytes(path);
    if (::sqlite3_open_v2(name.constData(), &database, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE,
                          nullptr) == SQLITE_OK)
        return database;
    const RuntimeError error = DataError::fromEngine(database, path);
    ::sqlite3_close_v2(database);
    throw error;
}

/// \a texts of users reach the engine, so what no statement of the suite needs is switched off.
void restrict(sqlite3 *database)
{
    ::sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    ::sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    ::sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    ::sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    ::sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    ::sqlite3_limit(database, SQLITE_LIMIT_LENGTH, longestText);
    ::sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, longestStatement);
    ::sqlite3_limit(database, SQLITE_LIMIT_EXPR_DEPTH, deepestStatement);
}

} // namespace

Connection::Connection() = default;

Connection::~Connection()
{
    close();
}

void Connection::open(const QString &path)
{
    close();
    m_database = opened(path, SQLITE_OPEN_READWRITE);
    m_idle = std::make_shared<IdleStatements>();
    try {
        configure();
    } catch (...) {
        close();
        throw;
    }
}

void Connection::configure()
{
    restrict(m_database);
    ::sqlite3_busy_timeout(m_database, waitMs);
    TextCollation::install(m_database);
    DateFunctions::install(m_database);
    execute(QStringLiteral("pragma foreign_keys=on"));
    execute(QStringLiteral("pragma cache_size=-%1").arg(cacheKiB));
}

void Connection::close()
{
    m_idle.reset();
    ::sqlite3_close_v2(std::exchange(m_database, nullptr));
}

void Connection::execute(const QString &statement)
{
    Statement(handle(), statement).finish(); // a pragma works when it is prepared, so it is not kept
}

bool Connection::isInTransaction() const
{
    return ::sqlite3_get_autocommit(handle()) == 0;
}

QString Connection::damage()
{
    Statement check(handle(), QStringLiteral("pragma quick_check(1)"));
    const QString found = check.step() ? QString::fromUtf8(check.text(0)) : QString();
    return found == u"ok" ? QString() : found;
}

void Connection::copyTo(const QString &path)
{
    sqlite3 *copy = opened(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup *backup = ::sqlite3_backup_init(copy, "main", handle(), "main");
    if (backup) {
        ::sqlite3_backup_step(backup, -1);
        ::sqlite3_backup_finish(backup); // reports the failure of the step through the copy
    }
    const bool isWhole = ::sqlite3_errcode(copy) == SQLITE_OK;
    const RuntimeError error = DataError::fromEngine(copy, path);
    ::sqlite3_close_v2(copy);
    if (!isWhole)
        throw error;
}

std::unique_ptr<Statement> Connection::prepare(const QString &statement)
{
    return std::make_unique<Statement>(handle(), statement, m_idle);
}

sqlite3 *Connection::handle() const
{
    if (!m_database)
        throw DataError::make(DataError::ClosedConnection);
    return m_database;
}
