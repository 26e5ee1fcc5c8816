#include "CaretPlacing.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>

void CaretPlacing::set(QTextEdit &view, const QTextCursor &cursor)
{
    QTextBlock block = cursor.block();
    if (block.layout()->lineCount() > 0) {
        view.setTextCursor(cursor);
        return;
    }
    // QTextEdit takes no cursor without asking where it is. A hidden paragraph is nowhere, which costs
    // nothing and scrolls to the top.
    const int top = view.verticalScrollBar()->value();
    block.setVisible(false);
    view.setTextCursor(cursor);
    block.setVisible(true);
    view.verticalScrollBar()->setValue(top);
}
