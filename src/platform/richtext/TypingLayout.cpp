#include "TypingLayout.h"

#include "EventGate.h"
#include "LayoutSample.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextEdit>
#include <QTextFrame>
#include <QTextLayout>

namespace {

double top(const QTextBlock &block)
{
    return block.layout()->position().y();
}

void moveTo(const QTextBlock &block, double y)
{
    block.layout()->setPosition({block.layout()->position().x(), y});
}

void move(const QTextBlock &block, double distance)
{
    moveTo(block, top(block) + distance);
}

bool isInRootFrame(const QTextBlock &block)
{
    return QTextCursor(block).currentFrame() == block.document()->rootFrame();
}

} // namespace

TypingLayout::TypingLayout(QTextEdit &view)
    : m_view(view)
{
    constexpr int pause = 400; // milliseconds
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    on(&m_pause, &QTimer::timeout, this, &TypingLayout::catchUp);
}

void TypingLayout::attach(QTextDocument &document)
{
    m_pause.stop();
    m_edit.reset();
    m_arrears.reset();
    m_document = &document;
    on(&document, &QTextDocument::contentsChange, this, &TypingLayout::beginEdit);
    // Told in this order when the edit is over; whoever listens next may ask where the caret is.
    on(&document, &QTextDocument::cursorPositionChanged, this, &TypingLayout::endEdit);
    on(&document, &QTextDocument::contentsChanged, this, &TypingLayout::endEdit);
}

void TypingLayout::catchUp()
{
    if (!m_arrears)
        return;
    giveBack(m_arrears->from, m_arrears->end);
    m_view.viewport()->update();
}

QRect TypingLayout::areaToPaint(const QRect &area)
{
    if (!m_arrears)
        return area;
    moveIntoView();
    if (top(m_document->findBlock(m_arrears->from)) < viewTop())
        catchUp();
    if (!m_arrears)
        return area;
    // Qt looks for the first and the last paragraph to paint by places that it noted before the edits. The
    // first is found right from the view's top; the last may come too early by what was typed since, each
    // character possibly a paragraph of its own.
    const int line = m_view.fontMetrics().lineSpacing();
    const int slack = qCeil(qAbs(m_arrears->lag)) + (qAbs(m_arrears->length) + 2) * line;
    return m_view.viewport()->rect().adjusted(0, 0, 0, slack);
}

/// Called before Qt's layout sees the edit.
void TypingLayout::beginEdit(int from, int removed, int added)
{
    if (canTake(from, removed, added)) {
        count(from, removed, added);
        m_edit = Edit{from, from + added};
        m_document->setLayoutEnabled(false);
    } else if (m_arrears) {
        const Arrears arrears = *std::exchange(m_arrears, std::nullopt);
        const int last = m_document->characterCount() - 1;
        const int first = qMin(arrears.from, last);
        m_document->markContentsDirty(first, qMax(1, qMin(arrears.end, last) - first)); // widens the edit
    }
}

bool TypingLayout::canTake(int from, int removed, int added) const
{
    constexpr int mostCharacters = 200;
    constexpr int mostParagraphs = 4;
    constexpr int fewParagraphs = 1000; // Qt is quick enough with them
    if (added > mostCharacters || removed > mostCharacters || !m_view.isVisible())
        return false;
    const QTextBlock first = m_document->findBlock(from);
    const QTextBlock last = m_document->findBlock(from + added);
    if (!first.isValid() || !last.isValid() || last.blockNumber() - first.blockNumber() >= mostParagraphs
        || m_document->blockCount() - last.blockNumber() < fewParagraphs)
        return false;
    const bool isLaidOut = m_document->lastBlock().layout()->lineCount() > 0; // Qt begins at the top
    const QTextBlock before = first.previous();
    const double y = before.isValid() ? top(before) : viewTop();
    const bool isInView = y > viewTop() - viewHeight() && y < viewTop() + viewHeight();
    const bool isBeforeRest = !m_arrears || from + removed < m_arrears->laidEnd;
    return isLaidOut && isInView && isBeforeRest;
}

/// Keeps the places of the arrears in step with the text.
void TypingLayout::count(int from, int removed, int added)
{
    if (!m_arrears)
        return;
    const int length = added - removed;
    m_arrears->length += qAbs(length);
    m_arrears->end = qMax(from + added, m_arrears->end + length);
    m_arrears->from = qMin(m_arrears->from, from);
    m_arrears->laidEnd += length;
}

/// Called when the edit is over, and after every other change, too.
void TypingLayout::endEdit()
{
    if (!m_edit)
        return;
    const Edit edit = *std::exchange(m_edit, std::nullopt);
    m_document->setLayoutEnabled(true);
    if (layOut(edit))
        m_pause.start();
    else
        giveBack(m_arrears ? m_arrears->from : edit.from, m_arrears ? m_arrears->end : edit.end);
}

bool TypingLayout::layOut(const Edit &edit)
{
    const QTextBlock first = m_document->findBlock(edit.from);
    const QTextBlock behind = m_document->findBlock(edit.end).next();
    const QTextBlock before = first.previous();
    const QTextBlock start = before.isValid() ? before : first;
    QTextBlock block = start;
    for (; LayoutSample::isSimple(block) && block != behind; block = block.next()) { }
    if (block != behind || !LayoutSample::isSimple(behind))
        return false;

    const LayoutSample sample(start, behind);
    int number = 0;
    double distance = 0; // of the sample to the document
    block = start;
    if (before.isValid()) {
        if (!LayoutSample::isSameLayout(before, sample.paragraph(number)))
            return false;
        distance = top(before) - top(sample.paragraph(number));
        block = block.next();
        ++number;
    }
    const double changedTop = distance + top(sample.paragraph(number));
    for (; block != behind; block = block.next(), ++number) {
        if (!LayoutSample::apply(sample.paragraph(number), block))
            return false;
        moveTo(block, distance + top(sample.paragraph(number)));
    }
    if (!LayoutSample::isSameLayout(behind, sample.paragraph(number)))
        return false;

    const double behindTop = distance + top(sample.paragraph(number));
    const double shift = behindTop - top(behind);
    if (!m_arrears)
        m_arrears = Arrears{edit.from, edit.end, behind.position(), 0, qMax(1, edit.end - edit.from)};
    if (!moveBelow(behind, shift))
        return false;
    const double height = shift == 0 ? behindTop - changedTop : viewHeight() * 2;
    Q_EMIT m_document->documentLayout()->update(
        QRectF(0, changedTop, m_view.viewport()->width() + m_view.horizontalScrollBar()->maximum(), height));
    return true;
}

/// Moves what is seen from \a behind on, down by \a distance pixels; false when it is more than paragraphs.
bool TypingLayout::moveBelow(const QTextBlock &behind, double distance)
{
    if (behind.position() > m_arrears->laidEnd)
        return false;
    QTextBlock block = behind;
    if (distance != 0) {
        for (; block.isValid() && block.position() < m_arrears->laidEnd; block = block.next()) {
            if (!isInRootFrame(block))
                return false;
            move(block, distance);
        }
    }
    m_arrears->lag += distance;
    moveIntoView();
    return m_arrears.has_value();
}

/// Moves paragraphs that came into reach of the view to their places.
void TypingLayout::moveIntoView()
{
    if (m_arrears->lag == 0)
        return;
    const double reach = viewTop() + 2 * viewHeight();
    QTextBlock block = m_document->findBlock(m_arrears->laidEnd);
    for (; block.isValid() && top(block) + m_arrears->lag < reach; block = block.next()) {
        if (!isInRootFrame(block)) {
            catchUp();
            return;
        }
        move(block, m_arrears->lag);
        m_arrears->laidEnd = block.position() + block.length();
    }
}

/// Lets Qt lay out the text from \a from to \a end, and put everything below in its place.
void TypingLayout::giveBack(int from, int end)
{
    m_pause.stop();
    m_arrears.reset();
    m_document->markContentsDirty(from, qMax(1, end - from));
}

double TypingLayout::viewTop() const
{
    return m_view.verticalScrollBar()->value();
}

double TypingLayout::viewHeight() const
{
    return m_view.viewport()->height();
}
