#pragma once

#include "RuntimeError.h"

struct sqlite3;

/// The errors of Connection and Recordset. All are RuntimeErrors: the engine's own failures have one of two
/// numbers and the engine's message, everything else a number and a text of the platform's data objects.
namespace DataError {

inline constexpr int RejectedStatement = -2147217900; ///< the engine cannot read the statement
inline constexpr int Engine = -2147467259;            ///< everything else that the engine reports
inline constexpr int NoStatement = -2147217908;
inline constexpr int NoCurrentRow = 3021;
inline constexpr int WrongMoment = 3219; ///< such as an update without addNew
inline constexpr int NotUpdatable = 3251;
inline constexpr int NoSuchField = 3265;
inline constexpr int Closed = 3704;
inline constexpr int AlreadyOpen = 3705;
inline constexpr int ClosedConnection = 3709;

/// The error with the platform's text for \a number; \a source is the statement or the field that it is
/// about.
RuntimeError make(int number, const QString &source = {});

/// Whether \a error is that another process has locked the file.
bool isLocked(const RuntimeError &error);

/// The error for what \a database has just reported about \a statement.
RuntimeError fromEngine(sqlite3 *database, const QString &statement);

} // namespace DataError
