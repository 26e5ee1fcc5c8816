#include "ParagraphLines.h"

#include "FrameSign.h"
#include "ParagraphBorders.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>

namespace {

using Borders = ParagraphBorders;

// Twips, whatever the file says
constexpr int mostSpace = 620;
constexpr int mostWidth = 240;

Borders bordersOf(const QTextBlock &paragraph)
{
    return Borders::read(paragraph.blockFormat().stringProperty(RichTextProperty::Borders));
}

/// Twips from the indent to where a first line that hangs, or the mark of a list, begins.
int hangOf(const QTextBlockFormat &format)
{
    constexpr int roomOfMark = 360;
    const int hang = qMax(0, -ParagraphFormat::firstLineIndent(format));
    return format.objectIndex() == -1 ? hang : qMax(hang, roomOfMark);
}

/// Whether both are paragraphs with nothing between them, and look the same at their sides.
bool isInOneBox(const QTextBlock &paragraph, const QTextBlock &next)
{
    if (!paragraph.isValid() || !next.isValid() ||
        paragraph.document()->characterAt(next.position() - 1) != QChar::ParagraphSeparator)
        return false;
    const QTextBlockFormat one = paragraph.blockFormat();
    const QTextBlockFormat other = next.blockFormat();
    return one.property(RichTextProperty::Borders) == other.property(RichTextProperty::Borders) &&
           ParagraphFormat::leftIndent(one) == ParagraphFormat::leftIndent(other) &&
           ParagraphFormat::rightIndent(one) == ParagraphFormat::rightIndent(other) &&
           hangOf(one) == hangOf(other);
}

bool isOnPage(const QTextBlock &paragraph)
{
    const QTextDocument &document = *paragraph.document();
    return document.frameAt(paragraph.position()) == document.rootFrame();
}

/// Whether Qt hides the empty paragraph in the edge of a table, beside its last row.
bool isInEdge(const QTextBlock &paragraph)
{
    const int position = paragraph.position();
    return paragraph.length() == 1 && position > 0 &&
           paragraph.document()->characterAt(position - 1) == QChar(FrameSign::end);
}

/// \a line between the margins of the page.
QRectF acrossPage(QRectF line, const QTextBlock &paragraph)
{
    const QTextDocument &document = *paragraph.document();
    const QTextFrame *page = document.rootFrame();
    const QRectF area = document.documentLayout()->frameBoundingRect(document.rootFrame());
    const QTextBlockFormat format = paragraph.blockFormat();
    line.setLeft(area.left() + page->frameFormat().leftMargin() + format.leftMargin());
    line.setRight(area.right() - page->frameFormat().rightMargin() - format.rightMargin());
    return line;
}

/// What is laid out, in the document; for paper the lines of a paragraph may be on several pages.
QList<QRectF> textLines(const QTextBlock &paragraph)
{
    const QTextLayout &layout = *paragraph.layout();
    const QPointF origin = paragraph.document()->documentLayout()->blockBoundingRect(paragraph).topLeft();
    QList<QRectF> lines;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        lines.append(QRectF(line.x(), line.y(), line.width(), line.height()).translated(origin));
    }
    if (!lines.isEmpty() && isInEdge(paragraph) && isOnPage(paragraph))
        lines.last() = acrossPage(lines.last(), paragraph);
    return lines;
}

constexpr double endless = 1e9; // pixels
constexpr QRectF everything(-endless, -endless, 2 * endless, 2 * endless);

/// Whether a page of \a document ends between two heights.
bool areOnTwoPages(const QTextDocument &document, double above, double below)
{
    const double height = document.pageSize().height(); // not positive where there are no pages
    return height > 0 && int(above / height) != int(below / height);
}

/// Pixels from the text of \a above down to that of \a below; endless where it is not below on its page.
double roomBetween(const QTextBlock &above, const QTextBlock &below)
{
    const QList<QRectF> upper = above.isValid() ? textLines(above) : QList<QRectF>();
    const QList<QRectF> lower = below.isValid() ? textLines(below) : QList<QRectF>();
    if (upper.isEmpty() || lower.isEmpty())
        return endless;
    const double end = upper.last().bottom();
    const double begin = lower.first().top();
    return begin < end || areOnTwoPages(*above.document(), end, begin) ? endless : begin - end;
}

Qt::PenStyle penStyle(const QString &style)
{
    if (style.startsWith(QLatin1String("brdrdash")))
        return style.contains(QLatin1String("dashd")) ? Qt::DashDotLine : Qt::DashLine;
    return style == QLatin1String("brdrdot") ? Qt::DotLine : Qt::SolidLine;
}

/// A border is one line, or a double one, whose second line is farther out.
enum Ring { Inner, Outer };

bool isIn(Ring ring, const ParagraphBorder &border)
{
    return border.isShown() && (ring == Inner || border.style == QLatin1String("brdrdb"));
}

class Pen
{
public:
    Pen(double dpi, QPainter &painter)
        : m_painter(painter)
        , m_textColor(painter.pen().color())
        , m_clip(painter.hasClipping() ? painter.clipBoundingRect() : everything)
        , m_dpi(dpi)
    {}
    double dots(int twips) const { return twips * m_dpi / Twips::perInch; }
    /// From the text to the middle of the inner line, where the space has \a room.
    double distance(const ParagraphBorder &border, double room = endless) const
    {
        return qMin(dots(qBound(0, border.space, mostSpace)), room) + width(border) / 2;
    }
    /// From the text to the far side of what \a border has up to \a ring.
    double reach(const ParagraphBorder &border, double distance, Ring ring) const
    {
        return border.isShown() ? distance + shift(border, ring) + width(border) / 2 : 0;
    }
    /// \a place is that of the inner line, \a outward the direction away from the text, of length 1.
    void draw(const ParagraphBorder &border, Ring ring, const QLineF &place, const QPointF &outward) const
    {
        if (!isIn(ring, border))
            return;
        const QLineF line = place.translated(outward * shift(border, ring));
        const double thick = width(border);
        if (!m_clip.intersects(QRectF(line.p1(), line.p2()).adjusted(-thick, -thick, thick, thick)))
            return; // of a paragraph on many pages
        const QColor color = border.color.isValid() ? border.color : m_textColor;
        m_painter.setPen(QPen(color, thick, penStyle(border.style), Qt::FlatCap));
        m_painter.drawLine(line);
    }

private:
    /// Pixels of the screen at least, and not over the text beside.
    double width(const ParagraphBorder &border) const
    {
        constexpr int usual = 15;
        const int twips = border.width < 0 ? usual : qMin(border.width, mostWidth);
        return qMax(m_dpi / ParagraphFormat::layoutDpi(), dots(twips));
    }
    double shift(const ParagraphBorder &border, Ring ring) const
    {
        return ring == Outer && isIn(ring, border) ? 2 * width(border) : 0;
    }

    QPainter &m_painter;
    QColor m_textColor;
    QRectF m_clip;
    double m_dpi;
};

/// What is around one paragraph.
class Box
{
public:
    /// \a text is not empty.
    Box(const QTextBlock &paragraph, const QList<QRectF> &text, const Pen &pen)
        : m_pen(pen)
        , m_borders(bordersOf(paragraph))
        , m_text(text)
        , m_isFirst(!isInOneBox(paragraph.previous(), paragraph))
        , m_isLast(!isInOneBox(paragraph, paragraph.next()))
        , m_roomBelow(roomBetween(paragraph, paragraph.next()))
        , m_above(pen.distance(upper(), roomBetween(paragraph.previous(), paragraph)))
        , m_below(pen.distance(m_borders[Borders::Bottom], m_roomBelow))
    {
        const QTextBlockFormat format = paragraph.blockFormat();
        const bool isRightToLeft = paragraph.textDirection() == Qt::RightToLeft;
        const double ahead = format.textIndent() + pen.dots(hangOf(format)); // of the first line
        m_left = text.first().left() - (isRightToLeft ? 0 : ahead);
        m_right = text.first().right() + (isRightToLeft ? ahead : 0);
    }
    void paint() const
    {
        for (const Ring ring : {Inner, Outer}) {
            for (const QRectF &line : besideText(ring)) {
                const double left = m_left - m_pen.distance(m_borders[Borders::Left]);
                const double right = m_right + m_pen.distance(m_borders[Borders::Right]);
                m_pen.draw(m_borders[Borders::Left], ring, {left, line.top(), left, line.bottom()}, {-1, 0});
                m_pen.draw(m_borders[Borders::Right], ring, {right, line.top(), right, line.bottom()},
                           {1, 0});
            }
            paintAcross(upper(), ring, m_text.first().top() - m_above, {0, -1});
            if (m_isLast)
                paintAcross(m_borders[Borders::Bottom], ring, m_text.last().bottom() + m_below, {0, 1});
        }
    }

private:
    const ParagraphBorder &upper() const { return m_borders[m_isFirst ? Borders::Top : Borders::Between]; }
    /// The heights of the lines at the sides, which are one where the text goes on.
    QList<QRectF> besideText(Ring ring) const
    {
        QList<QRectF> beside = m_text;
        if (m_isFirst)
            beside.first().setTop(m_text.first().top() - m_pen.reach(m_borders[Borders::Top], m_above, ring));
        if (m_isLast)
            beside.last().setBottom(m_text.last().bottom() +
                                    m_pen.reach(m_borders[Borders::Bottom], m_below, ring));
        else if (m_roomBelow < endless)
            beside.last().setBottom(m_text.last().bottom() + m_roomBelow);
        return beside;
    }
    void paintAcross(const ParagraphBorder &border, Ring ring, double y, const QPointF &outward) const
    {
        const ParagraphBorder &left = m_borders[Borders::Left];
        const ParagraphBorder &right = m_borders[Borders::Right];
        const double begin = m_left - m_pen.reach(left, m_pen.distance(left), ring);
        const double end = m_right + m_pen.reach(right, m_pen.distance(right), ring);
        m_pen.draw(border, ring, {begin, y, end, y}, outward);
    }

    const Pen m_pen;
    const Borders m_borders;
    const QList<QRectF> m_text;
    const bool m_isFirst;
    const bool m_isLast;
    const double m_roomBelow;
    const double m_above; ///< from the text to the middle of the inner line there
    const double m_below;
    double m_left = 0; ///< of the text, with what hangs out of it
    double m_right = 0;
};

} // namespace

bool ParagraphLines::has(const QTextBlock &paragraph)
{
    return paragraph.blockFormat().hasProperty(RichTextProperty::Borders);
}

bool ParagraphLines::areNear(const QTextDocument &document, int from, int end)
{
    const QTextBlock before = document.findBlock(from).previous();
    QTextBlock block = before.isValid() ? before : document.begin();
    while (block.isValid() && block.position() <= end && !has(block))
        block = block.next();
    return block.isValid() && has(block); // the one behind the end, too
}

double ParagraphLines::farthest(double dpi)
{
    constexpr int linesOfDouble = 3;
    return (mostSpace + linesOfDouble * mostWidth) * dpi / Twips::perInch;
}

void ParagraphLines::paint(const QTextBlock &paragraph, double dpi, QPainter &painter)
{
    const QList<QRectF> text = textLines(paragraph);
    if (text.isEmpty())
        return;
    painter.save();
    Box(paragraph, text, Pen(dpi, painter)).paint();
    painter.restore();
}
