#include "FileFilter.h"

namespace {

/// The part of \a text before its patterns in brackets, which the toolkit's filter carries itself.
QString label(const QString &text)
{
    const qsizetype bracket = text.indexOf(u'(');
    return (bracket < 0 ? text : text.left(bracket)).trimmed();
}

} // namespace

QStringList FileFilter::toNameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(label(parts[i]), patterns.join(u' '));
    }
    return filters;
}
