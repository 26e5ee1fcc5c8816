#pragma once

#include <QString>
#include <optional>

/// The text of a statement: what it may not hold, since the texts of users are joined into it without
/// quoting, and the number in it, which is joined into it too.
namespace StatementText {

/// Throws RuntimeError: DataError::NoStatement for an empty text, RejectedStatement where a comment is
/// outside of quotes or where there is a NUL, behind which the engine reads nothing. Either could hide the
/// rest of the statement.
void check(const QString &statement);

struct LastNumber
{
    qint64 value;
    QString text; ///< the statement with a parameter in the number's place
};

/// The number that the condition of a query ends with: "select * from Home where SrNo=5". Such queries are
/// asked row for row, and the engine prepares them once by their text with the parameter. Nothing where the
/// text holds quotes or parameters, or where the condition is not the query's last part.
std::optional<LastNumber> lastNumber(const QString &statement);

} // namespace StatementText
