#include "ReportValue.h"

#include <QString>
#include <algorithm>

namespace {

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// Whether no group ends what the backslash before \a rest begins.
bool isEndless(QStringView rest)
{
    if (rest.isEmpty())
        return true;
    if (rest.startsWith(u'\''))
        return rest.size() < 3 || !isHexDigit(rest[1]) || !isHexDigit(rest[2]);
    return rest.startsWith(u"bin") && (rest.size() == 3 || !isLetter(rest[3]));
}

bool hasMarkup(const QString &value)
{
    return std::ranges::any_of(value, [](QChar c) { return c == u'\\' || c == u'{' || c == u'}'; });
}

/// \a value between the braces that it lacks.
class Group
{
public:
    explicit Group(const QString &value);

    QString text() const
    {
        return QString(1 + m_missing, u'{') + m_text + QString(1 + m_missing + m_depth, u'}');
    }

private:
    /// Takes the backslash at the beginning of \a rest and what it makes a brace or a backslash; returns the
    /// number of characters taken.
    qsizetype takeBackslash(QStringView rest);

    QString m_text;
    qsizetype m_depth = 0;   ///< groups that are open, below 0 while more were closed
    qsizetype m_missing = 0; ///< groups that were closed without having been opened
};

Group::Group(const QString &value)
{
    for (qsizetype i = 0; i < value.size();) {
        if (value[i] == u'\\') {
            i += takeBackslash(QStringView(value).mid(i));
            continue;
        }
        m_depth += int(value[i] == u'{') - int(value[i] == u'}');
        m_missing = std::max(m_missing, -m_depth);
        m_text += value[i++];
    }
}

qsizetype Group::takeBackslash(QStringView rest)
{
    const QStringView behind = rest.mid(1);
    if (isEndless(behind)) {
        m_text += QStringLiteral("\\\\");
        return 1;
    }
    const bool isEscape = behind[0] == u'\\' || behind[0] == u'{' || behind[0] == u'}';
    const qsizetype count = isEscape ? 2 : 1;
    m_text += rest.first(count);
    return count;
}

} // namespace

QString ReportValue::markup(const QString &value)
{
    return hasMarkup(value) ? Group(value).text() : value;
}
