#include "RowsAcrossPages.h"

#include "DocumentTables.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace {

bool standsLower(const QTextTableCell &cell)
{
    const auto alignment = cell.format().verticalAlignment();
    return alignment == QTextCharFormat::AlignMiddle || alignment == QTextCharFormat::AlignBottom;
}

QList<QTextTableCell> cellsBeginningIn(const QTextTable &table, int row)
{
    QList<QTextTableCell> cells;
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.row() == row && cell.column() == column)
            cells.append(cell);
    }
    return cells;
}

QRectF area(const QTextTableCell &cell)
{
    const QAbstractTextDocumentLayout &layout = *cell.firstCursorPosition().document()->documentLayout();
    return layout.blockBoundingRect(cell.firstCursorPosition().block()) |
           layout.blockBoundingRect(cell.lastCursorPosition().block());
}

bool isCut(const QList<QTextTableCell> &cells, double pageHeight)
{
    QRectF row;
    for (const QTextTableCell &cell : cells)
        row |= area(cell);
    return int(row.top() / pageHeight) != int(row.bottom() / pageHeight);
}

/// Of all cut rows, so that the layout is asked before it is disturbed.
QList<QTextTableCell> cutLowCells(const QTextTable &table, double pageHeight)
{
    QList<QTextTableCell> low;
    for (int row = 0; row < table.rows(); ++row) {
        const QList<QTextTableCell> cells = cellsBeginningIn(table, row);
        if (std::any_of(cells.cbegin(), cells.cend(), standsLower) && isCut(cells, pageHeight))
            std::copy_if(cells.cbegin(), cells.cend(), std::back_inserter(low), standsLower);
    }
    return low;
}

} // namespace

void RowsAcrossPages::alignTop(QTextDocument &document)
{
    QList<QTextTableCell> cells;
    for (const QTextTable *table : DocumentTables::of(document))
        cells += cutLowCells(*table, document.pageSize().height());
    if (cells.isEmpty())
        return;
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (QTextTableCell &cell : cells) {
        QTextCharFormat format = cell.format();
        format.setVerticalAlignment(QTextCharFormat::AlignTop);
        cell.setFormat(format);
    }
    edit.endEditBlock();
    document.setPageSize(document.pageSize()); // lays out all, as behind what was changed Qt forgets pages
}
