#pragma once

#include <QMultiHash>
#include <QRectF>

class QTextDocument;

/// Tables whose cells share their lines and that reach over a page's edge, where Qt leaves them open.
namespace TableEdges {

struct ClosingLine
{
    QRectF pattern; ///< the table's upper line in the document, to be painted once more
    double top;     ///< where in the document
};

/// The lines that close the tables of \a document, whose pages are as PagePainter has them; by the page, from
/// 0. Tables within tables get none.
QMultiHash<int, ClosingLine> closingLines(const QTextDocument &document);

} // namespace TableEdges
