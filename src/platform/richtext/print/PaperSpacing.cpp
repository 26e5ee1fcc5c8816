#include "PaperSpacing.h"

#include "DocumentTables.h"
#include "ParagraphLines.h"
#include "RichTextProperties.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

namespace {

QTextBlockFormat emptyLine(double height)
{
    QTextBlockFormat format;
    format.setLineHeight(height, QTextBlockFormat::FixedHeight);
    return format;
}

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

void padCells(const QTextTable &table)
{
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() == row && cell.column() == column)
                moveToPadding(cell, table.format().cellPadding());
        }
    }
}

/// A blank keeps a line its height beside a table, where Qt hides empty ones.
void makeEmptyLine(QTextCursor &edit, const QTextBlockFormat &format)
{
    edit.setBlockFormat(format);
    edit.insertText(QString(QChar::Nbsp), QTextCharFormat());
}

bool isEmpty(const QTextBlock &paragraph)
{
    return paragraph.length() <= 1;
}

/// An empty paragraph that has lines, such as one across the page, keeps its height.
void keepLines(const QTextBlock &paragraph)
{
    if (isEmpty(paragraph) && ParagraphLines::has(paragraph))
        QTextCursor(paragraph).insertText(QString(QChar::Nbsp), paragraph.charFormat());
}

/// By empty lines: Qt would give the margins of a table to each of its pages.
void part(const QTextTable &table)
{
    QTextDocument &document = *table.document();
    keepLines(document.findBlock(table.firstPosition() - 1));
    keepLines(document.findBlock(table.lastPosition() + 1));
    const QTextBlock before = document.findBlock(table.firstPosition() - 1);
    const QTextBlock behind = document.findBlock(table.lastPosition() + 1);
    if (!isEmpty(behind))
        PaperSpacing::insertBefore(behind, behind.blockFormat().topMargin());
    const double space = before.blockFormat().bottomMargin();
    if (isEmpty(before) || space <= 0)
        return;
    QTextCursor edit(&document);
    edit.setPosition(table.firstPosition() - 1);
    QTextBlockFormat text = edit.blockFormat();
    text.setBottomMargin(0);
    edit.setBlockFormat(text);
    edit.insertBlock();
    makeEmptyLine(edit, emptyLine(space));
}

/// Of the paragraphs that follow each other without a table or the edge of a cell between them.
void partParagraphs(QTextDocument &document, QTextCursor &edit)
{
    QTextBlockFormat before;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        const bool follows = document.characterAt(block.position() - 1) == QChar::ParagraphSeparator;
        const bool isRich = before.hasProperty(RichTextProperty::SpaceAfter) &&
                            format.hasProperty(RichTextProperty::SpaceBefore);
        const double after = before.bottomMargin();
        before = format;
        if (!follows || !isRich)
            continue;
        format.setTopMargin(format.topMargin() + after);
        edit.setPosition(block.position());
        edit.setBlockFormat(format);
    }
}

} // namespace

void PaperSpacing::insertBefore(const QTextBlock &paragraph, double height)
{
    if (height <= 0)
        return;
    QTextBlockFormat line = emptyLine(height);
    QTextBlockFormat text = paragraph.blockFormat();
    line.setPageBreakPolicy(text.pageBreakPolicy());
    text.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
    text.setTopMargin(0);
    QTextCursor edit(paragraph);
    edit.insertBlock(text);
    edit.movePosition(QTextCursor::PreviousBlock);
    makeEmptyLine(edit, line);
}

void PaperSpacing::complete(QTextDocument &document)
{
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (const QTextTable *table : DocumentTables::of(document)) {
        padCells(*table);
        part(*table);
    }
    partParagraphs(document, edit);
    edit.endEditBlock();
}
