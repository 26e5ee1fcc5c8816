#include "SelectionRanges.h"

#include <QTextTable>

QList<SelectionRanges::Range> SelectionRanges::of(const QTextCursor &selection)
{
    if (!selection.hasComplexSelection())
        return {{selection.selectionStart(), selection.selectionEnd()}};

    int firstRow = 0;
    int rows = 0;
    int firstColumn = 0;
    int columns = 0;
    selection.selectedTableCells(&firstRow, &rows, &firstColumn, &columns);
    const QTextTable *table = selection.currentTable();
    QList<Range> ranges;
    for (int row = firstRow; row < firstRow + rows; ++row) {
        for (int column = firstColumn; column < firstColumn + columns; ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            if (cell.row() == row && cell.column() == column)
                ranges.append({cell.firstPosition(), cell.lastPosition()});
        }
    }
    return ranges;
}
