#include "CellKeys.h"

#include "RichTextProperties.h"

#include <QKeyEvent>
#include <QTextTable>

namespace {

/// The look of \a cell, without what belongs to its own place and text.
QTextCharFormat lookOf(const QTextTableCell &cell)
{
    QTextCharFormat format = cell.format();
    for (const int id :
         {int(QTextFormat::TableCellRowSpan), int(QTextFormat::TableCellColumnSpan),
          int(QTextFormat::IsAnchor), int(QTextFormat::AnchorHref), int(RichTextProperty::Field),
          int(RichTextProperty::NoteMark), int(RichTextProperty::NoteCount)})
        format.clearProperty(id);
    return format;
}

QTextBlockFormat lookOf(QTextBlockFormat paragraph)
{
    for (const int id : {int(QTextFormat::PageBreakPolicy), int(RichTextProperty::Section),
                         int(RichTextProperty::SectionNumber), int(RichTextProperty::OnlyBeforeTable),
                         int(RichTextProperty::Note), int(RichTextProperty::NoteIsAtEnd)})
        paragraph.clearProperty(id);
    return paragraph;
}

/// Gives an empty cell the look of \a other, as it is for its first paragraph.
void takeLook(QTextTableCell cell, const QTextTableCell &other)
{
    cell.setFormat(lookOf(other));
    cell.firstCursorPosition().setBlockFormat(lookOf(other.firstCursorPosition().blockFormat()));
}

void appendRow(QTextTable &table)
{
    const int row = table.rows();
    QTextCursor edit = table.firstCursorPosition();
    edit.beginEditBlock();
    table.appendRows(1);
    for (int column = 0; column < table.columns(); ++column)
        takeLook(table.cellAt(row, column), table.cellAt(row - 1, column));
    edit.endEditBlock();
}

QTextTableCell cellBehind(QTextTable &table, const QTextTableCell &cell)
{
    if (cell.lastPosition() < table.lastPosition())
        return table.cellAt(cell.lastPosition() + 1);
    appendRow(table);
    return table.cellAt(table.rows() - 1, 0);
}

QTextTableCell cellBefore(const QTextTable &table, const QTextTableCell &cell)
{
    return cell.firstPosition() == table.firstPosition() ? cell : table.cellAt(cell.firstPosition() - 1);
}

} // namespace

bool CellKeys::press(const QKeyEvent &key, QTextCursor &caret)
{
    const bool isTab = key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier;
    const bool isBacktab = key.key() == Qt::Key_Backtab;
    QTextTable *table = caret.currentTable();
    if (!table || !(isTab || isBacktab))
        return false;
    const QTextTableCell cell = table->cellAt(caret);
    caret.setPosition((isTab ? cellBehind(*table, cell) : cellBefore(*table, cell)).firstPosition());
    return true;
}
