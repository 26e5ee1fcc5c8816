#include "CellArea.h"

#include <QTextTable>
#include <private/qtextdocumentlayout_p.h>

QRectF CellArea::of(QTextTable &table, const QTextTableCell &cell)
{
    const auto *layout = static_cast<QTextDocumentLayout *>(table.document()->documentLayout());
    return layout->tableCellBoundingRect(&table, cell);
}
