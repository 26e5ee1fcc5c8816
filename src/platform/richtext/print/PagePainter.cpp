#include "PagePainter.h"

#include "HollowBullets.h"
#include "LinkFinder.h"
#include "ParagraphFormat.h"
#include "ParagraphLines.h"

#include <QPainter>
#include <QTextDocument>

PagePainter::PagePainter(const QTextDocument &document, const std::optional<QTextCharFormat> &linkLook)
    : m_document(document)
    , m_marks(document.pageCount())
    , m_circles(HollowBullets::circles(document))
    , m_closingLines(TableEdges::closingLines(document))
    , m_cellEdges(document)
{
    findLines();
    if (linkLook)
        markLinks(*linkLook);
}

void PagePainter::findLines()
{
    const double pageHeight = m_document.pageSize().height();
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
        if (!ParagraphLines::has(block))
            continue;
        const QRectF area = m_document.documentLayout()->blockBoundingRect(block);
        for (int page = int(area.top() / pageHeight); page <= int(area.bottom() / pageHeight); ++page)
            m_lined.insert(page, block);
    }
}

void PagePainter::markLinks(const QTextCharFormat &look)
{
    const double pageHeight = m_document.pageSize().height();
    for (const LinkFinder::Link &link : LinkFinder::between(m_document, 0, m_document.characterCount())) {
        const QTextBlock paragraph = m_document.findBlock(link.first);
        QTextCursor cursor(paragraph);
        cursor.setPosition(link.first);
        cursor.setPosition(link.end, QTextCursor::KeepAnchor);
        const QRectF area = m_document.documentLayout()->blockBoundingRect(paragraph);
        const int last = qMin(int(area.bottom() / pageHeight), int(m_marks.size()) - 1);
        for (int page = int(area.top() / pageHeight); page <= last; ++page)
            m_marks[page].append({cursor, look});
    }
}

void PagePainter::paint(int number, QPainter &painter) const
{
    paintPart(area(number), number, painter);
    paintLines(number, painter);
    paintCircles(number, painter);
    closeTables(number, painter);
    closeCells(number, painter);
}

/// The part of the document that page \a number shows. Lines may begin or end in the paper's margin.
QRectF PagePainter::area(int number) const
{
    const QSizeF size = m_document.pageSize();
    const double height = size.height() / 3;
    return {-size.width(), number * size.height() + height, 3 * size.width(), height};
}

/// Puts the upper end of \a part at the painter's origin.
void PagePainter::paintPart(const QRectF &part, int number, QPainter &painter) const
{
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = part;
    context.selections = m_marks.value(number);
    painter.save();
    painter.translate(0, -part.top());
    painter.setClipRect(part);
    m_document.documentLayout()->draw(&painter, context);
    painter.restore();
}

/// Those of the first and the last line of text reach into the room above and below.
void PagePainter::paintLines(int number, QPainter &painter) const
{
    const double room = area(number).height() / 2;
    const double dpi = m_document.documentLayout()->paintDevice()->logicalDpiY();
    painter.save();
    painter.translate(0, -area(number).top());
    painter.setClipRect(area(number).adjusted(0, -room, 0, room));
    painter.setPen(Qt::black);
    for (const QTextBlock &paragraph : m_lined.values(number))
        ParagraphLines::paint(paragraph, dpi, painter);
    painter.restore();
}

/// Over Qt's, with the line of a pixel on the screen.
void PagePainter::paintCircles(int number, QPainter &painter) const
{
    const double dpi = m_document.documentLayout()->paintDevice()->logicalDpiY();
    painter.save();
    painter.translate(0, -area(number).top());
    painter.setPen(QPen(Qt::black, dpi / ParagraphFormat::layoutDpi()));
    for (const QRectF &circle : m_circles.values(number))
        painter.drawEllipse(circle);
    painter.restore();
}

void PagePainter::closeTables(int number, QPainter &painter) const
{
    constexpr double little = 0.1; // keeps the lines of text above and below out
    for (const TableEdges::ClosingLine &line : m_closingLines.values(number)) {
        painter.save();
        painter.translate(0, line.top - area(number).top() + little);
        paintPart(line.pattern.adjusted(0, little, 0, -little), number, painter);
        painter.restore();
    }
}

void PagePainter::closeCells(int number, QPainter &painter) const
{
    painter.save();
    painter.translate(0, -area(number).top());
    m_cellEdges.paint(number, painter);
    painter.restore();
}
