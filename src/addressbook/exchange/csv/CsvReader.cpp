#include "CsvReader.h"

#include "CsvColumns.h"
#include "CsvText.h"
#include "PlainText.h"
#include "RuntimeError.h"

ContactList CsvReader::read(const QByteArray &bytes)
{
    const QList<QStringList> rows = CsvText::read(PlainText::decode(bytes));
    const CsvColumns columns(rows.value(0));
    if (!columns.isKnown())
        throw RuntimeError(
            ErrorNumber::InvalidFileFormat,
            QStringLiteral("The first line has none of the captions that contacts are known by"));
    ContactList list;
    for (const QStringList &row : rows.mid(1)) {
        ContactBuilder builder;
        columns.fill(builder, row);
        builder.finish(list);
    }
    return list;
}
