#include "QuickLayout.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextFrame>

namespace {

/// The table or frame of the page that holds \a position, or else the paragraph there: its first and its last
/// position.
std::pair<int, int> partAt(const QTextDocument &document, int position)
{
    const QTextFrame *page = document.rootFrame();
    const QTextFrame *frame = document.frameAt(position);
    while (frame != page && frame->parentFrame() != page)
        frame = frame->parentFrame();
    if (frame != page)
        return {frame->firstPosition(), frame->lastPosition()};
    const QTextBlock paragraph = document.findBlock(position);
    return {paragraph.position(), paragraph.position() + paragraph.length() - 1};
}

int positionAt(const QTextDocument &document, double y)
{
    return qMax(0, document.documentLayout()->hitTest(QPointF(0, y), Qt::FuzzyHit));
}

} // namespace

bool QuickLayout::isAvailable()
{
    return false;
}

void QuickLayout::install(QTextDocument &document, QTextEdit &)
{
    (void)document.documentLayout(); // Qt makes its own when it is first asked for
}

bool QuickLayout::isBehind(const QTextDocument &)
{
    return false;
}

void QuickLayout::catchUp(QTextDocument &)
{}

/// A hit between two parts may give either, so that one more counts on each side.
std::pair<int, int> QuickLayout::stretchInView(const QTextDocument &document, const QTextEdit &view)
{
    const int top = view.verticalScrollBar()->value();
    const int first = partAt(document, positionAt(document, top)).first;
    const int last = partAt(document, positionAt(document, top + view.viewport()->height())).second;
    const int end = document.characterCount() - 1;
    return {partAt(document, qMax(0, first - 1)).first, partAt(document, qMin(end, last + 1)).second};
}
