#include "FileFilter.h"

QStringList FileFilter::toNameFilters(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(parts[i].trimmed(), patterns.join(u' '));
    }
    return filters;
}
