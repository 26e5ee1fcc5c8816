#pragma once

#include <QString>

/// What a statement's text may not hold, since the texts of users are joined into it without quoting.
namespace StatementText {

/// Throws RuntimeError: DataError::NoStatement for an empty text, RejectedStatement where a comment is
/// outside of quotes or where there is a NUL, behind which the engine reads nothing. Either could hide the
/// rest of the statement.
void check(const QString &statement);

} // namespace StatementText
