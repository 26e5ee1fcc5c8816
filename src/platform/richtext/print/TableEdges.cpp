#include "TableEdges.h"

#include "ParagraphFormat.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextDocument>
#include <QTextTable>
#include <cmath>

namespace {

bool sharesLines(const QTextTableFormat &format)
{
    return format.borderCollapse() && format.border() > 0;
}

double lineWidth(const QTextTable &table)
{
    const double dpi = table.document()->documentLayout()->paintDevice()->logicalDpiY();
    return table.format().border() * dpi / ParagraphFormat::layoutDpi();
}

QRectF upperLine(const QRectF &table, double width)
{
    const QRectF line(table.left(), std::floor(table.top()) - width, table.width(), width);
    return line.adjusted(-2 * width, 0, 2 * width, 0); // the outer lines are beside it
}

} // namespace

QMultiHash<int, TableEdges::ClosingLine> TableEdges::closingLines(const QTextDocument &document)
{
    QMultiHash<int, ClosingLine> lines;
    const double height = document.pageSize().height();
    for (QTextFrame *frame : document.rootFrame()->childFrames()) {
        const auto *table = qobject_cast<QTextTable *>(frame);
        if (!table || !sharesLines(table->format()))
            continue;
        const double width = lineWidth(*table);
        const QRectF area = document.documentLayout()->frameBoundingRect(frame);
        const QRectF pattern = upperLine(area, width);
        const int last = int(area.bottom() / height);
        // Qt ends the table two widths from the edge and begins it so on the next page, at whole dots.
        for (int page = int(pattern.top() / height); page < last; ++page) {
            lines.insert(page, {pattern, std::round((page + 2 / 3.) * height - 2 * width)});
            lines.insert(page + 1, {pattern, std::round((page + 4 / 3.) * height + 2 * width) - width});
        }
    }
    return lines;
}
