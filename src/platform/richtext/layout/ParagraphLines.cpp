#include "ParagraphLines.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "Twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

struct Line
{
    QString style;  ///< as files name it; empty where there is none
    int width = 15; ///< twips
    int space = 0;  ///< twips between it and the text
    QColor color;   ///< invalid for that of the text
};

struct Lines
{
    Line top, left, bottom, right, between;
};

Line *side(Lines &lines, const QString &word)
{
    if (word == QLatin1String("brdrt"))
        return &lines.top;
    if (word == QLatin1String("brdrl"))
        return &lines.left;
    if (word == QLatin1String("brdrb"))
        return &lines.bottom;
    if (word == QLatin1String("brdrr"))
        return &lines.right;
    return word == QLatin1String("brdrbtw") ? &lines.between : nullptr;
}

void apply(const QString &word, Line &line)
{
    const auto number = [&](const char *name) { return word.mid(QLatin1String(name).size()).toInt(); };
    if (word.startsWith(QLatin1String("brdrcf")))
        line.color = QColor(word.mid(6));
    else if (word.startsWith(QLatin1String("brsp")))
        line.space = number("brsp");
    else if (word.startsWith(QLatin1String("brdrw")) && word.back().isDigit())
        line.width = number("brdrw");
    else if (word == QLatin1String("brdrnone"))
        line.style.clear();
    else if (word != QLatin1String("brdrsh"))
        line.style = word;
}

Lines linesOf(const QTextBlockFormat &format)
{
    Lines lines;
    Line *open = nullptr;
    for (const QString &word : format.stringProperty(RichTextProperty::Borders).split(u' ')) {
        if (Line *next = side(lines, word); next || word == QLatin1String("brdrbar")) // which is not shown
            open = next;
        else if (open)
            apply(word, *open);
    }
    return lines;
}

/// Whether both are paragraphs with nothing between them, and look the same at their sides.
bool isInOneFrame(const QTextBlock &paragraph, const QTextBlock &next)
{
    if (!paragraph.isValid() || !next.isValid() ||
        paragraph.document()->characterAt(next.position() - 1) != QChar::ParagraphSeparator)
        return false;
    const QTextBlockFormat one = paragraph.blockFormat();
    const QTextBlockFormat other = next.blockFormat();
    return one.property(RichTextProperty::Borders) == other.property(RichTextProperty::Borders) &&
           ParagraphFormat::leftIndent(one) == ParagraphFormat::leftIndent(other) &&
           ParagraphFormat::rightIndent(one) == ParagraphFormat::rightIndent(other);
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
    return lines;
}

constexpr double endless = 1e9; // pixels

/// Pixels from the text of \a above down to that of \a below; endless where it is not below.
double roomBetween(const QTextBlock &above, const QTextBlock &below)
{
    const QList<QRectF> upper = above.isValid() ? textLines(above) : QList<QRectF>();
    const QList<QRectF> lower = below.isValid() ? textLines(below) : QList<QRectF>();
    const double room =
        upper.isEmpty() || lower.isEmpty() ? endless : lower.first().top() - upper.last().bottom();
    return room < 0 ? endless : room;
}

Qt::PenStyle penStyle(const QString &style)
{
    if (style.startsWith(QLatin1String("brdrdash")))
        return style.contains(QLatin1String("dashd")) ? Qt::DashDotLine : Qt::DashLine;
    return style == QLatin1String("brdrdot") ? Qt::DotLine : Qt::SolidLine;
}

class Pen
{
public:
    Pen(double dpi, QPainter &painter)
        : m_painter(painter)
        , m_textColor(painter.pen().color())
        , m_dpi(dpi)
    {}
    double dots(int twips) const { return twips * m_dpi / Twips::perInch; }
    /// From the text to the middle of \a line, where the space has \a room.
    double distance(const Line &line, double room = endless) const
    {
        return qMin(dots(line.space), room) + width(line) / 2;
    }
    /// Pixels of the screen at least.
    double width(const Line &line) const
    {
        return qMax(m_dpi / ParagraphFormat::layoutDpi(), dots(line.width));
    }
    /// \a outward is the direction away from the text, of length 1.
    void draw(const Line &line, const QLineF &place, const QPointF &outward) const
    {
        if (line.style.isEmpty())
            return;
        QPen pen(line.color.isValid() ? line.color : m_textColor, width(line), penStyle(line.style),
                 Qt::FlatCap);
        m_painter.setPen(pen);
        m_painter.drawLine(place);
        if (line.style == QLatin1String("brdrdb"))
            m_painter.drawLine(place.translated(outward * 2 * width(line)));
    }

private:
    QPainter &m_painter;
    QColor m_textColor;
    double m_dpi;
};

/// What is around one paragraph.
class Frame
{
public:
    /// \a text is not empty.
    Frame(const QTextBlock &paragraph, const QList<QRectF> &text, const Pen &pen)
        : m_pen(pen)
        , m_lines(linesOf(paragraph.blockFormat()))
        , m_text(text)
        , m_isFirst(!isInOneFrame(paragraph.previous(), paragraph))
        , m_isLast(!isInOneFrame(paragraph, paragraph.next()))
        , m_roomBelow(roomBetween(paragraph, paragraph.next()))
        , m_above(pen.distance(firstLine(), roomBetween(paragraph.previous(), paragraph)))
        , m_below(pen.distance(m_lines.bottom, m_roomBelow))
    {
        for (const QRectF &line : text) {
            m_left = qMin(m_left, line.left());
            m_right = qMax(m_right, line.right());
        }
    }
    void paint() const
    {
        for (const QRectF &line : besideText()) {
            const double left = m_left - m_pen.distance(m_lines.left);
            const double right = m_right + m_pen.distance(m_lines.right);
            m_pen.draw(m_lines.left, {left, line.top(), left, line.bottom()}, {-1, 0});
            m_pen.draw(m_lines.right, {right, line.top(), right, line.bottom()}, {1, 0});
        }
        paintAcross(firstLine(), m_text.first().top() - m_above, {0, -1});
        if (m_isLast)
            paintAcross(m_lines.bottom, m_text.last().bottom() + m_below, {0, 1});
    }

private:
    const Line &firstLine() const { return m_isFirst ? m_lines.top : m_lines.between; }
    double reach(const Line &line, double distance) const
    {
        return line.style.isEmpty() ? 0 : distance + m_pen.width(line) / 2;
    }
    /// The heights of the lines at the sides, which are one where the text goes on.
    QList<QRectF> besideText() const
    {
        QList<QRectF> beside = m_text;
        if (m_isFirst)
            beside.first().setTop(m_text.first().top() - reach(m_lines.top, m_above));
        if (m_isLast)
            beside.last().setBottom(m_text.last().bottom() + reach(m_lines.bottom, m_below));
        else if (m_roomBelow < endless)
            beside.last().setBottom(m_text.last().bottom() + m_roomBelow);
        return beside;
    }
    void paintAcross(const Line &line, double y, const QPointF &outward) const
    {
        const double left = m_left - reach(m_lines.left, m_pen.distance(m_lines.left));
        const double right = m_right + reach(m_lines.right, m_pen.distance(m_lines.right));
        m_pen.draw(line, {left, y, right, y}, outward);
    }

    const Pen m_pen;
    const Lines m_lines;
    const QList<QRectF> m_text;
    const bool m_isFirst;
    const bool m_isLast;
    const double m_roomBelow;
    const double m_above; ///< from the text to the middle of the line there
    const double m_below;
    double m_left = m_text.first().left();
    double m_right = m_text.first().right();
};

} // namespace

bool ParagraphLines::has(const QTextBlock &paragraph)
{
    return paragraph.blockFormat().hasProperty(RichTextProperty::Borders);
}

void ParagraphLines::paint(const QTextBlock &paragraph, double dpi, QPainter &painter)
{
    const QList<QRectF> text = textLines(paragraph);
    if (text.isEmpty())
        return;
    painter.save();
    Frame(paragraph, text, Pen(dpi, painter)).paint();
    painter.restore();
}
