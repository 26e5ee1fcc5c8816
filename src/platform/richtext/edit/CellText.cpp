#include "CellText.h"

#include "RichTextProperties.h"

#include <QTextTable>

bool CellText::isAtEmptyCell(const QTextCursor &caret)
{
    const QTextTable *table = caret.currentTable();
    return table && caret.block().length() == 1 && table->cellAt(caret).firstPosition() == caret.position();
}

QTextCharFormat CellText::format(const QTextCharFormat &cell)
{
    QTextCharFormat text = cell;
    text.clearBackground();
    text.clearProperty(QTextFormat::TextVerticalAlignment);
    text.clearProperty(QTextFormat::ObjectType);
    text.clearProperty(RichTextProperty::CellBorders);
    for (int id = QTextFormat::TableCellRowSpan; id <= QTextFormat::TableCellRightBorderBrush; ++id)
        text.clearProperty(id);
    return text;
}
