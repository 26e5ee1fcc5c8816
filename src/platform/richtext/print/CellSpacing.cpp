#include "CellSpacing.h"

#include "DocumentTables.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

namespace {

struct Space
{
    double before = 0;
    double after = 0;
};

Space spaceOf(const QTextTableCell &cell)
{
    return {cell.firstCursorPosition().block().blockFormat().topMargin(),
            cell.lastCursorPosition().block().blockFormat().bottomMargin()};
}

void add(QTextTableCellFormat &format, int side, double space, double ofTable)
{
    const double before = format.hasProperty(side) ? format.doubleProperty(side) : ofTable;
    format.setProperty(side, before + space);
}

void moveToPadding(QTextTableCell cell, double ofTable)
{
    const Space space = spaceOf(cell);
    if (space.before <= 0 && space.after <= 0)
        return;
    QTextTableCellFormat format = cell.format().toTableCellFormat();
    add(format, QTextFormat::TableCellTopPadding, space.before, ofTable);
    add(format, QTextFormat::TableCellBottomPadding, space.after, ofTable);
    cell.setFormat(format);
}

} // namespace

void CellSpacing::moveToPadding(QTextDocument &document)
{
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (const QTextTable *table : DocumentTables::of(document)) {
        for (int row = 0; row < table->rows(); ++row) {
            for (int column = 0; column < table->columns(); ++column) {
                const QTextTableCell cell = table->cellAt(row, column);
                if (cell.row() == row && cell.column() == column)
                    ::moveToPadding(cell, table->format().cellPadding());
            }
        }
    }
    edit.endEditBlock();
}
