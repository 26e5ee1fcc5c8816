#include "StatementText.h"

#include "DataError.h"

#include <algorithm>

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

bool isDigit(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}

/// Whether \a statement is a query without a text or parameter in it.
bool isPlainQuery(const QString &statement)
{
    return statement.startsWith(u"select ", Qt::CaseInsensitive) &&
           std::none_of(statement.begin(), statement.end(),
                        [](QChar sign) { return sign == u'?' || closingQuote(sign) != 0; });
}

/// Whether the condition that begins at the last "where" belongs to the whole query: within brackets, a
/// column might be named after it.
bool isOfWholeQuery(QStringView condition)
{
    return condition.count(u'(') == condition.count(u')');
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

std::optional<StatementText::LastNumber> StatementText::lastNumber(const QString &statement)
{
    const qsizetype condition = statement.lastIndexOf(u" where ", -1, Qt::CaseInsensitive);
    if (condition < 0 || !isPlainQuery(statement) ||
        !isOfWholeQuery(QStringView(statement).sliced(condition)))
        return {};
    qsizetype end = statement.size();
    while (statement[end - 1] == u')')
        --end;
    qsizetype begin = end;
    while (isDigit(statement[begin - 1]))
        --begin;
    const QStringView digits = QStringView(statement).sliced(begin, end - begin);
    bool isNumber = false;
    const qint64 value = digits.toLongLong(&isNumber);
    if (!isNumber || statement[begin - 1] != u'=')
        return {};
    return LastNumber{value, QString(statement).replace(begin, digits.size(), QStringLiteral("?"))};
}
