#include "QuickLayout.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextFrame>

namespace {

QTextBlock paragraphAt(const QTextDocument &document, double y)
{
    return document.findBlock(document.documentLayout()->hitTest(QPointF(0, y), Qt::FuzzyHit));
}

/// The table or frame of the page that holds \a block; null when that is on the page itself.
const QTextFrame *frameOnPage(const QTextBlock &block)
{
    const QTextFrame *page = block.document()->rootFrame();
    const QTextFrame *frame = block.document()->frameAt(block.position());
    while (frame != page && frame->parentFrame() != page)
        frame = frame->parentFrame();
    return frame == page ? nullptr : frame;
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

/// Cells beside each other end at several heights, so that the whole table counts as in view.
std::pair<int, int> QuickLayout::stretchInView(const QTextDocument &document, const QTextEdit &view)
{
    const int top = view.verticalScrollBar()->value();
    const QTextBlock first = paragraphAt(document, top);
    const QTextBlock last = paragraphAt(document, top + view.viewport()->height());
    const QTextFrame *startFrame = frameOnPage(first);
    const QTextFrame *endFrame = frameOnPage(last);
    return {startFrame ? startFrame->firstPosition() : first.position(),
            endFrame ? endFrame->lastPosition() : last.position() + last.length() - 1};
}
