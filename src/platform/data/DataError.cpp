#include "DataError.h"

#include <sqlite3.h>

namespace {

QString platformText(int number)
{
    switch (number) {
    case DataError::NoStatement:
        return QStringLiteral("Command text was not set for the command object.");
    case DataError::NoCurrentRow:
        return QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested "
                              "operation requires a current record.");
    case DataError::WrongMoment:
        return QStringLiteral("Operation is not allowed in this context.");
    case DataError::NotUpdatable:
        return QStringLiteral("Current Recordset does not support updating. This may be a limitation of the "
                              "provider, or of the selected locktype.");
    case DataError::NoSuchField:
        return QStringLiteral("Item cannot be found in the collection corresponding to the requested name or "
                              "ordinal.");
    case DataError::Closed:
        return QStringLiteral("Operation is not allowed when the object is closed.");
    case DataError::AlreadyOpen:
        return QStringLiteral("Operation is not allowed when the object is open.");
    case DataError::ClosedConnection:
        return QStringLiteral("The connection cannot be used to perform this operation. It is either closed "
                              "or invalid in this context.");
    default:
        return {};
    }
}

} // namespace

RuntimeError DataError::make(int number, const QString &source)
{
    return RuntimeError(number, platformText(number), source);
}

bool DataError::isLocked(const RuntimeError &error)
{
    return error.number() == Engine && error.description() == QLatin1String(::sqlite3_errstr(SQLITE_BUSY));
}

RuntimeError DataError::fromEngine(sqlite3 *database, const QString &statement)
{
    const int number = (::sqlite3_errcode(database) & 0xff) == SQLITE_ERROR ? RejectedStatement : Engine;
    return RuntimeError(number, QString::fromUtf8(::sqlite3_errmsg(database)), statement);
}
