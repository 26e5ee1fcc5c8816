#include "ReportDelegate.h"

QString ReportDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    const QString row = value.toString();
    if (!row.startsWith(u'\t'))
        return PlainTextDelegate::displayText(row, locale);
    const QString indent = QStringLiteral("        ");
    return indent + PlainTextDelegate::displayText(row.mid(1), locale);
}

/// As wide as the list, whatever is in the first row, which Qt measures for all.
QSize ReportDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {1, rowHeight(option, index)};
}
