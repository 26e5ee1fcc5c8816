#include "StatementText.h"

#include "DataError.h"

namespace {

/// The sign that ends what \a sign begins; 0 where it begins nothing.
char16_t closingQuote(QChar sign)
{
    switch (sign.unicode()) {
    case u'\'':
    case u'"':
    case u'`':
        return sign.unicode();
    case u'[':
        return u']';
    default:
        return 0;
    }
}

bool hasComment(const QString &statement)
{
    char16_t quote = 0; // a doubled quote inside a quoted text ends it and begins the next
    for (qsizetype i = 0; i < statement.size(); ++i) {
        if (quote != 0) {
            if (statement[i] == quote)
                quote = 0;
            continue;
        }
        quote = closingQuote(statement[i]);
        const QStringView two = QStringView(statement).mid(i, 2);
        if (two == u"--" || two == u"/*")
            return true;
    }
    return false;
}

} // namespace

void StatementText::check(const QString &statement)
{
    if (statement.trimmed().isEmpty())
        throw DataError::make(DataError::NoStatement);
    if (statement.contains(QChar(u'\0')))
        throw RuntimeError(DataError::RejectedStatement, QStringLiteral("NUL character in the statement"),
                           statement);
    if (hasComment(statement))
        throw RuntimeError(DataError::RejectedStatement, QStringLiteral("comment in the statement"),
                           statement);
}
