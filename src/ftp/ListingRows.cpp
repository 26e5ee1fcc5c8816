#include "ListingRows.h"

QStringList ListingRows::of(const QString &response)
{
    QStringList rows;
    QString row;
    bool isBlank = true;
    for (const QChar character : response) {
        if (character == u'\n')
            continue;
        if (character != u'\r') {
            row += character;
            isBlank = isBlank && character == u' ';
        } else if (!isBlank) { // Intended: else the row runs on
            rows.append(row);
            row.clear();
            isBlank = true;
        }
    }
    return rows;
}
