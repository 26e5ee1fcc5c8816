#include "BreaksInTables.h"

#include "DocumentTables.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

namespace {

/// Takes back the breaks from position \a first to \a last, and returns whether there were any.
bool takeBack(const QTextDocument &document, int first, int last)
{
    bool found = false;
    for (QTextBlock block = document.findBlock(first); block.isValid() && block.position() <= last;
         block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.pageBreakPolicy() == QTextFormat::PageBreak_Auto)
            continue;
        found = true;
        format.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
        QTextCursor(block).setBlockFormat(format);
    }
    return found;
}

void breakBefore(QTextTable &table)
{
    QTextTableFormat format = table.format();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    table.setFormat(format);
}

} // namespace

void BreaksInTables::moveOut(QTextDocument &document)
{
    constexpr int firstTable = 1; // behind the empty paragraph that Qt has before each
    for (QTextTable *table : DocumentTables::of(document)) {
        const int endOfRow = table->cellAt(0, table->columns() - 1).lastPosition();
        const bool isOnPage = table->parentFrame() == document.rootFrame();
        if (takeBack(document, table->firstPosition(), endOfRow) && isOnPage &&
            table->firstPosition() > firstTable)
            breakBefore(*table);
        takeBack(document, endOfRow, table->lastPosition());
    }
}
