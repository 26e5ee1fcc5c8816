#include "TypingLayout.h"

#include "EventGate.h"
#include "FrameData.h"
#include "LayoutSample.h"
#include "UnmovedLines.h"

#include <QScrollBar>
#include <QTextEdit>
#include <QTextTable>
#include <private/qfont_p.h>
#include <private/qtextdocument_p.h>

namespace {

double top(const QTextBlock &block)
{
    return block.layout()->position().y();
}

double bottom(const QTextBlock &block)
{
    return top(block) + block.layout()->boundingRect().height();
}

void moveTo(const QTextBlock &block, double y)
{
    block.layout()->setPosition({block.layout()->position().x(), y});
}

/// The table or frame of the page that holds \a block; null when that is on the page itself. Takes longer the
/// more tables there are.
QTextFrame *frameOnPage(const QTextBlock &block)
{
    QTextFrame *page = block.document()->rootFrame();
    QTextFrame *frame = block.document()->frameAt(block.position());
    while (frame != page && frame->parentFrame() != page)
        frame = frame->parentFrame();
    return frame == page ? nullptr : frame;
}

bool isOnPage(const QTextBlock &block)
{
    return block.isValid() && !frameOnPage(block);
}

/// The table of the page that \a block is in a cell of, but not in a frame within.
QTextTable *tableOf(const QTextBlock &block)
{
    auto *table = qobject_cast<QTextTable *>(block.document()->frameAt(block.position()));
    return table && table->parentFrame() == block.document()->rootFrame() ? table : nullptr;
}

/// True when no table and no frame begins or ends between \a block and the paragraph before it.
bool followsParagraph(const QTextBlock &block)
{
    return block.isValid() && block.position() > 0 &&
           block.document()->characterAt(block.position() - 1) == QChar::ParagraphSeparator;
}

/// \a block, or where that begins a table or a frame, the paragraph behind it.
QTextBlock behindFrame(const QTextBlock &block)
{
    const QTextFrame *frame = block.isValid() && !followsParagraph(block) ? frameOnPage(block) : nullptr;
    return frame ? block.document()->findBlock(frame->lastPosition() + 1) : block;
}

/// The paragraph of the page before \a block, which is on the page, too; invalid where there is none.
QTextBlock previousOnPage(const QTextBlock &block)
{
    const QTextBlock before = block.previous();
    const QTextFrame *frame = before.isValid() && !followsParagraph(block) ? frameOnPage(before) : nullptr;
    return frame ? block.document()->findBlock(frame->firstPosition() - 1) : before;
}

/// True for an empty paragraph beside a table, and for a line break that begins one behind a table: Qt hides
/// both in the table's edge.
bool isInEdge(const QTextBlock &block)
{
    const bool isBehind = block.position() > 0 && !followsParagraph(block);
    if (block.length() == 1)
        return isBehind || !followsParagraph(block.next());
    return isBehind && block.document()->characterAt(block.position()) == QChar::LineSeparator;
}

/// The paragraph of the page before \a block, or before the table that \a block is in, whose height is one of
/// the page; invalid where there is none.
QTextBlock aboveOnPage(const QTextBlock &block)
{
    const QTextTable *table = tableOf(block);
    QTextBlock above =
        table ? block.document()->findBlock(table->firstPosition() - 1) : previousOnPage(block);
    while (above.isValid() && isInEdge(above))
        above = previousOnPage(above);
    return above;
}

/// The paragraph of the page behind \a block, or behind the table that \a block is in.
QTextBlock belowOnPage(const QTextBlock &block)
{
    const QTextTable *table = tableOf(block);
    return behindFrame(table ? block.document()->findBlock(table->lastPosition() + 1) : block.next());
}

bool hasFloats(const QTextDocument &document)
{
    const QList<QTextFrame *> frames = document.rootFrame()->childFrames();
    return std::any_of(frames.cbegin(), frames.cend(), [](const QTextFrame *frame) {
        return frame->frameFormat().position() != QTextFrameFormat::InFlow;
    });
}

/// The place in the text of \a block nearest to \a point; -1 when an exact hit is wanted and there is none.
int placeIn(const QTextBlock &block, const QPointF &point, Qt::HitTestAccuracy accuracy)
{
    const QTextLayout &layout = *block.layout();
    const QPointF inside = point - layout.position();
    int place = 0;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const QRectF area = line.naturalTextRect();
        if (area.top() > inside.y())
            break;
        if (area.bottom() <= inside.y()) {
            place = line.textStart() + line.textLength();
            continue;
        }
        const bool isOnText = area.left() <= inside.x() && area.right() >= inside.x();
        if (accuracy == Qt::ExactHit)
            return isOnText ? block.position() + line.xToCursor(inside.x(), QTextLine::CursorOnCharacter)
                            : -1;
        return block.position() + line.xToCursor(inside.x());
    }
    return accuracy == Qt::ExactHit ? -1 : block.position() + place;
}

} // namespace

TypingLayout::TypingLayout(QTextDocument &document, QTextEdit &view)
    : QTextDocumentLayout(&document)
    , m_view(view)
{
    constexpr int pause = 400; // milliseconds
    m_pause.setSingleShot(true);
    m_pause.setInterval(pause);
    on(&m_pause, &QTimer::timeout, this, &TypingLayout::catchUp);
}

// ---- Questions

void TypingLayout::draw(QPainter *painter, const PaintContext &context)
{
    if (isBehind() && (!context.clip.isValid() || context.clip.bottom() > m_pending->visibleBottom))
        catchUp();
    PaintContext widened = context;
    if (isBehind() && context.clip.bottom() > editedTop()) {
        // Qt looks for the first and the last paragraph to paint by places that it noted before the edits.
        // They are right above the edits, and come late enough from the first paragraph left behind on.
        widened.clip.setTop(qMin(context.clip.top(), editedTop()));
        widened.clip.setBottom(top(paragraphOf(m_pending->validUntil)) + 1);
    }
    QTextDocumentLayout::draw(painter, widened);
}

int TypingLayout::hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const
{
    if (isBehind() && point.y() > editedTop()) {
        const QTextBlock hit = paragraphAt(point.y());
        const bool isBetween = hit.isValid() && point.y() < top(hit) - hit.blockFormat().topMargin();
        if (isBetween)
            return accuracy == Qt::ExactHit ? -1 : hit.position();
        if (hit.isValid())
            return placeIn(hit, point, accuracy);
        settle();
    }
    return QTextDocumentLayout::hitTest(point, accuracy);
}

/// A hit would do, too, but where there is no text right at the point Qt lays out up to the document's end.
std::pair<int, int> TypingLayout::stretchInView() const
{
    const double bottomOfView = viewTop() + viewHeight();
    if (isBehind() && bottomOfView > m_pending->visibleBottom)
        settle();
    const bool startsBelowEdits = isBehind() && viewTop() > editedTop();
    const bool endsBelowEdits = isBehind() && bottomOfView > editedTop();
    return {startsBelowEdits ? lastUntouched().position() : stretchAt(viewTop()).first,
            endsBelowEdits ? m_pending->validUntil : stretchAt(bottomOfView).second};
}

/// The paragraph or table at the height \a y, which is above all edits that Qt's layout has not seen.
std::pair<int, int> TypingLayout::stretchAt(double y) const
{
    if (layoutStatus() < 100) { // to ask about paragraphs far below would lay out all above them
        const int hit = QTextDocumentLayout::hitTest(QPointF(0, y), Qt::FuzzyHit);
        return {hit, hit};
    }
    int above = -1; // the number of a paragraph that ends above
    int below = document()->blockCount() - 1;
    while (below - above > 1) {
        const int middle = (above + below) / 2;
        const QTextBlock block = document()->findBlockByNumber(middle);
        (QTextDocumentLayout::blockBoundingRect(block).bottom() < y ? above : below) = middle;
    }
    // Cells beside each other end at several heights, and an empty paragraph before a table is in its edge.
    const QTextBlock first = document()->findBlockByNumber(qMax(above, 0));
    const QTextBlock last = document()->findBlockByNumber(qMin(below + 1, document()->blockCount() - 1));
    const QTextFrame *startFrame = frameOnPage(first);
    const QTextFrame *endFrame = frameOnPage(last);
    return {startFrame ? startFrame->firstPosition() : first.position(),
            endFrame ? endFrame->lastPosition() : last.position() + last.length() - 1};
}

int TypingLayout::pageCount() const
{
    settle();
    return QTextDocumentLayout::pageCount();
}

QSizeF TypingLayout::documentSize() const
{
    settle();
    return QTextDocumentLayout::documentSize();
}

QRectF TypingLayout::frameBoundingRect(QTextFrame *frame) const
{
    if (frame != document()->rootFrame()) // which every selection asks about
        settle();
    const double growth = isBehind() ? m_pending->heightDelta : 0;
    return QTextDocumentLayout::frameBoundingRect(frame).adjusted(0, 0, 0, growth);
}

QRectF TypingLayout::blockBoundingRect(const QTextBlock &block) const
{
    if (isBehind() && block.position() >= m_pending->validUntil)
        settle();
    return QTextDocumentLayout::blockBoundingRect(block);
}

/// Catches up before an answer. In the midst of an edit nothing can be laid out; answers are then what Qt's
/// own are there, too.
void TypingLayout::settle() const
{
    if (!QTextDocumentPrivate::get(document())->isInEditBlock())
        const_cast<TypingLayout *>(this)->catchUp();
}

/// The last paragraph for positions beyond the text, as there are in the midst of an edit.
QTextBlock TypingLayout::paragraphOf(int position) const
{
    return document()->findBlock(qMin(position, document()->characterCount() - 1));
}

/// The paragraph of the page before the edits, or the first of all when that was edited.
QTextBlock TypingLayout::lastUntouched() const
{
    const QTextBlock edited = paragraphOf(m_pending->from);
    const QTextBlock before = aboveOnPage(edited);
    return before.isValid() ? before : edited;
}

/// All that Qt's layout knows is right above this height.
double TypingLayout::editedTop() const
{
    return m_pending->from < document()->begin().length() ? 0 : top(lastUntouched());
}

/// The first paragraph from the edits on that ends below \a y; invalid when a table is near, or the height is
/// below what is laid out.
QTextBlock TypingLayout::paragraphAt(double y) const
{
    QTextBlock block = lastUntouched();
    while (y < m_pending->visibleBottom && bottom(block) < y && followsParagraph(block.next()))
        block = block.next();
    const bool isRight = y < m_pending->visibleBottom && bottom(block) >= y && followsParagraph(block.next());
    return isRight ? block : QTextBlock();
}

// ---- Edits

void TypingLayout::documentChanged(int from, int removed, int added)
{
    if (removed < 0) { // Qt, when it undoes the removal of a list; it would leave out the last paragraph
        added -= removed;
        removed = 0;
    }
    if (canTake(from, removed, added)) {
        note(from, removed, added);
        if (layOutUnmoved(from, removed, added) || layOut(from, added))
            m_pause.start();
        else
            catchUp();
    } else {
        layOutAtOnce(from, removed, added);
    }
    m_paragraphs = document()->blockCount();
}

/// Leaves an edit to Qt's layout.
void TypingLayout::layOutAtOnce(int from, int removed, int added)
{
    const bool isEverything = removed == 0 && added == document()->characterCount();
    if (isBehind() && from >= m_pending->end)
        catchUp();
    if (isBehind() && from + removed >= m_pending->from && !isEverything) {
        note(from, removed, added);
        catchUp();
    } else {
        layOutBelow(from, removed, added);
    }
}

void TypingLayout::timerEvent(QTimerEvent *event)
{
    run([&] { catchUp(); }); // Qt continues where it was
    QTextDocumentLayout::timerEvent(event);
}

void TypingLayout::catchUp()
{
    if (!isBehind())
        return;
    const int length = m_pending->end - m_pending->from;
    layOutBelow(m_pending->from, length - m_pending->grown, length);
}

/// Has Qt lay out an edit, and put everything below it in its place.
void TypingLayout::layOutBelow(int from, int removed, int added)
{
    const bool wasBehind = isBehind();
    m_pause.stop();
    m_pending.reset();
    QTextDocumentLayout::documentChanged(from, removed, added);
    if (wasBehind && document()->isLayoutEnabled()) {
        Q_EMIT update();
        Q_EMIT documentSizeChanged(dynamicDocumentSize()); // Qt does not emit the same size twice
    }
}

bool TypingLayout::canTake(int from, int removed, int added) const
{
    constexpr int mostCharacters = 200;
    constexpr int fewParagraphs = 1000; // Qt is quick enough with them
    const QTextDocument &text = *document();
    if (added > mostCharacters || removed > mostCharacters ||
        text.blockCount() - text.findBlock(from).blockNumber() < fewParagraphs)
        return false;
    const bool isNearPending = !isBehind() || (from + removed < m_pending->validUntil && areEditsNearView());
    return isNearPending && layoutStatus() == 100 && text.isLayoutEnabled() &&
           text.pageSize().height() <= 0 && !hasFloats(text);
}

void TypingLayout::note(int from, int removed, int added)
{
    const int grown = added - removed;
    if (!isBehind())
        m_pending = PendingEdits{from, from + removed, 0, from + removed + 1};
    m_pending->end = qMax(m_pending->end, from + removed) + grown;
    m_pending->from = qMin(m_pending->from, from);
    m_pending->grown += grown;
    m_pending->validUntil += grown;
}

/// Lays out the paragraphs and the tables of an edit and what is seen below; false when that is not sure to
/// be right.
bool TypingLayout::layOut(int from, int added)
{
    const QTextBlock first = document()->findBlock(from);
    const QTextBlock before = aboveOnPage(first);
    const QTextBlock start = before.isValid() ? before : document()->begin();
    const QTextBlock behind = belowOnPage(document()->findBlock(from + added));
    if (!isNearView(start) || !LayoutSample::canHold(start, behind))
        return false;

    const LayoutSample sample(start, behind);
    const QTextBlock sampleBehind = sample.copyOf(behind);
    const double distance = before.isValid() ? top(before) - top(sample.copyOf(before)) : 0;
    const bool wasWide = widthOfAll() > document()->pageSize().width();
    if (sample.width() > widthOfAll() || (wasWide && sample.hasTables()) ||
        mayHaveBeenWidest(first, behind) || !LayoutSample::isSameLayout(sampleBehind, behind) ||
        (before.isValid() && !LayoutSample::isSameLayout(sample.copyOf(before), before)))
        return false;
    return apply(sample, before.isValid() ? before.next() : start, behind, distance) &&
           moveBelow(behind, distance + top(sampleBehind));
}

/// Lays out the paragraphs and the tables from \a first on up to \a behind as their copies are, \a distance
/// pixels below those.
bool TypingLayout::apply(const LayoutSample &sample, const QTextBlock &first, const QTextBlock &behind,
                         double distance)
{
    for (QTextBlock block = first; block != behind; block = block.next()) {
        const QTextBlock copy = sample.copyOf(block);
        if (!LayoutSample::apply(copy, block))
            return false;
        QTextTable *table = tableOf(block);
        if (!table)
            moveTo(block, distance + top(copy));
        else if (table->firstPosition() == block.position() &&
                 !takeOver(sample.copyOf(*table), *table, distance))
            return false;
    }
    return true;
}

/// Gives \a table the place and the rows of \a copy.
bool TypingLayout::takeOver(QTextTable &copy, QTextTable &table, double distance)
{
    FrameData::exchange(copy, table);
    return FrameData::moveBy(table, distance);
}

/// Pixels; all that fits into the page does not make the document wider.
double TypingLayout::widthOfAll() const
{
    return qMax(document()->pageSize().width(), dynamicDocumentSize().width());
}

/// Pixels; of the margins Qt scales the document's alone.
double TypingLayout::scaledMargin() const
{
    const QPaintDevice *device = paintDevice();
    return document()->documentMargin() * (device ? device->logicalDpiY() / double(qt_defaultDpi()) : 1.0);
}

/// True when the document may become narrower by an edit of the paragraphs from \a first on up to \a behind,
/// whose lines are those from before.
bool TypingLayout::mayHaveBeenWidest(const QTextBlock &first, const QTextBlock &behind) const
{
    if (widthOfAll() <= document()->pageSize().width())
        return false;
    if (document()->blockCount() < m_paragraphs)
        return true;
    for (QTextBlock block = first; block != behind; block = block.next()) {
        const QTextLayout &layout = *block.layout();
        const double margins = block.blockFormat().rightMargin() + 2 * scaledMargin();
        for (int i = 0; i < layout.lineCount(); ++i) {
            if (layout.lineAt(i).x() + layout.lineAt(i).naturalTextWidth() + margins > widthOfAll() - 1)
                return true;
        }
    }
    return false;
}

/// Lays out the paragraph of an edit where that moves nothing else; false where it would. Qt hides an empty
/// paragraph beside a table, so outside of cells the edit may not empty it, nor fill it; and a line break
/// that begins a paragraph behind a table has no height.
bool TypingLayout::layOutUnmoved(int from, int removed, int added)
{
    const QTextBlock paragraph = document()->findBlock(from);
    // A change of the paragraph's format reaches beyond it.
    const bool keepsParagraphs = paragraph.contains(from + added) && document()->blockCount() == m_paragraphs;
    if (!keepsParagraphs || !LayoutSample::isSimple(paragraph) || !isNearView(lastUntouched()))
        return false;
    QTextTable *table = tableOf(paragraph);
    const bool isOrWasEmpty = qMin(paragraph.length(), paragraph.length() + removed - added) <= 1;
    const QTextBlock behind = belowOnPage(paragraph);
    if (!behind.isValid() || mayHaveBeenWidest(paragraph, paragraph.next()))
        return false;
    const bool isBehindTable = from == paragraph.position() && from > 0 && !followsParagraph(paragraph);
    if (table ? !isFixedCell(*table, from) : isOrWasEmpty || isBehindTable || !isOnPage(paragraph))
        return false;
    return UnmovedLines::layOutAgain(paragraph) && moveBelow(behind, placeOf(behind));
}

bool TypingLayout::isFixedCell(QTextTable &table, int position) const
{
    const QTextTableCell cell = table.cellAt(position);
    return UnmovedLines::isFixed(table.format(), cell, tableCellBoundingRect(&table, cell).width());
}

/// The height at which \a block begins, also where it was left behind.
double TypingLayout::placeOf(const QTextBlock &block) const
{
    return top(block) + (block.position() < m_pending->validUntil ? 0 : m_pending->heightDelta);
}

/// Moves what is seen from \a behind on, so that this paragraph begins at the height \a y; false when
/// something cannot be moved, or the document's end comes first.
bool TypingLayout::moveBelow(const QTextBlock &behind, double y)
{
    PendingEdits &pending = *m_pending;
    const double shift = y - placeOf(behind);
    pending.heightDelta += shift;
    int firstUnseen = -1;
    for (QTextBlock block = behind; block.isValid(); block = block.next()) {
        const bool isLeftBehind = block.position() >= pending.validUntil;
        const double distance = isLeftBehind ? pending.heightDelta : shift;
        if (QTextFrame *frame = followsParagraph(block) ? nullptr : frameOnPage(block)) {
            if (distance != 0 && !FrameData::moveBy(*frame, distance))
                return false;
            block = document()->findBlock(frame->lastPosition());
            continue;
        }
        const double place = top(block) + distance;
        if (firstUnseen < 0 && place > viewTop() + 2 * viewHeight()) {
            firstUnseen = block.position();
            pending.visibleBottom = place;
        }
        // What Qt noted counts the characters and pixels of the text before the edits.
        if (firstUnseen >= 0 && isLeftBehind && block.position() > firstUnseen + qMax(0, pending.grown) &&
            qMin(place, top(block)) > pending.visibleBottom) {
            pending.validUntil = block.position();
            showChange(behind, shift);
            return true;
        }
        moveTo(block, place);
    }
    return false;
}

/// Has the edited paragraphs painted, those below if they moved, and keeps the scroll bar right.
void TypingLayout::showChange(const QTextBlock &behind, double shift)
{
    constexpr double everything = 1e9;
    // A paragraph hidden beside a table begins above the end of the table.
    const double height = shift == 0 ? bottom(behind) - editedTop() : everything;
    Q_EMIT update(QRectF(0, editedTop(), everything, height));
    const int whole = qRound(dynamicDocumentSize().height() + m_pending->heightDelta);
    m_view.verticalScrollBar()->setMaximum(qMax(0, whole - m_view.viewport()->height()));
}

bool TypingLayout::areEditsNearView() const
{
    return isNearView(lastUntouched()) && m_pending->visibleBottom < viewTop() + 5 * viewHeight();
}

bool TypingLayout::isNearView(const QTextBlock &block) const
{
    return qAbs(top(block) - viewTop()) < 3 * viewHeight() && m_view.isVisible();
}

double TypingLayout::viewTop() const
{
    return m_view.verticalScrollBar()->value();
}

double TypingLayout::viewHeight() const
{
    return m_view.viewport()->height();
}
