#include "RowWords.h"

#include "BorderWords.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfWords.h"
#include "WrittenColours.h"

#include <QTextTable>
#include <array>
#include <numeric>

using ParagraphFormat::toTwips;

namespace {

constexpr int usualWidth = 9000; // twips, of a table that does not say its own

int twips(const QTextLength &length, int whole)
{
    if (length.type() == QTextLength::FixedLength)
        return toTwips(length.rawValue());
    return qRound(length.value(whole));
}

/// The edges as they were read, if they still fit the columns.
QList<int> keptEdges(const QTextTable &table)
{
    QList<int> edges;
    const QString kept = table.format().stringProperty(RichTextProperty::RowTwips);
    for (const QString &edge : kept.split(u' ', Qt::SkipEmptyParts))
        edges.append(edge.toInt());
    return edges.size() == table.columns() ? edges : QList<int>();
}

/// The edges that the table's column widths give; columns without a width share what is left.
QList<int> edgesOfWidths(const QTextTable &table)
{
    constexpr int narrowest = 20;
    const QTextTableFormat format = table.format();
    const bool isWide = format.width().type() != QTextLength::VariableLength;
    const int whole = isWide ? twips(format.width(), usualWidth) : usualWidth;
    const QList<QTextLength> lengths = format.columnWidthConstraints();
    QList<int> widths(table.columns(), 0);
    int open = table.columns();
    for (int i = 0; i < qMin(widths.size(), lengths.size()); ++i) {
        if (lengths.at(i).type() != QTextLength::VariableLength) {
            widths[i] = qMax(narrowest, twips(lengths.at(i), whole));
            --open;
        }
    }
    const int left = whole - std::accumulate(widths.cbegin(), widths.cend(), 0);
    for (int &width : widths) {
        if (width == 0)
            width = qMax(narrowest, left / open);
    }
    QList<int> edges(widths.size());
    std::partial_sum(widths.cbegin(), widths.cend(), edges.begin());
    const int start = toTwips(format.leftMargin());
    for (int &edge : edges)
        edge += start;
    return edges;
}

/// A table wider than the format can say is drawn in, each column still a little behind the one before.
void drawIn(QList<int> &edges)
{
    const qint64 widest = edges.constLast();
    if (widest <= RtfWords::largestLength)
        return;
    for (qsizetype i = 0; i < edges.size(); ++i) {
        const int left = i == 0 ? 0 : edges.at(i - 1);
        edges[i] = qMax(left + 1, int(edges.at(i) * qint64(RtfWords::largestLength) / widest));
    }
}

const char *borderWord(QTextFrameFormat::BorderStyle style)
{
    switch (style) {
    case QTextFrameFormat::BorderStyle_Dotted:
        return "brdrdot";
    case QTextFrameFormat::BorderStyle_Dashed:
        return "brdrdash";
    case QTextFrameFormat::BorderStyle_Double:
        return "brdrdb";
    default:
        return "brdrs";
    }
}

/// Twips, on the side whose property of cell formats is \a side.
int paddingOf(const QTextTable &table, const QTextTableCell &cell, int side)
{
    const QTextCharFormat format = cell.format();
    return toTwips(format.hasProperty(side) ? format.doubleProperty(side) : table.format().cellPadding());
}

QByteArray startOf(const QTextTableFormat &format, int gap)
{
    QByteArray out = "\\trowd";
    if (format.layoutDirection() == Qt::RightToLeft)
        RtfWords::append(out, "rtlrow");
    if (format.alignment().testFlag(Qt::AlignHCenter))
        RtfWords::append(out, "trqc");
    else if (format.alignment().testFlag(Qt::AlignRight))
        RtfWords::append(out, "trqr");
    if (gap > 0)
        RtfWords::appendLength(out, "trgaph", gap);
    if (toTwips(format.leftMargin()) != 0)
        RtfWords::appendLength(out, "trleft", toTwips(format.leftMargin()));
    return out;
}

} // namespace

RowWords::RowWords(const QTextTable &table, int firstRow, WrittenColours &colours)
    : m_table(table)
    , m_firstRow(firstRow)
    , m_colours(colours)
    , m_edges(keptEdges(table))
    , m_gap(paddingOf(table, table.cellAt(firstRow, 0), QTextFormat::TableCellLeftPadding))
    , m_start(startOf(table.format(), m_gap))
    , m_borders(borders())
{
    if (m_edges.isEmpty())
        m_edges = edgesOfWidths(table);
    drawIn(m_edges);
}

QByteArray RowWords::row(int row, int first, int last)
{
    QByteArray out = m_start;
    if (row < m_table.format().headerRowCount())
        RtfWords::append(out, "trhdr");
    for (int column = first; column <= last;) {
        const QTextTableCell cellHere = m_table.cellAt(row, column);
        const int behind = qMin(last + 1, cellHere.column() + cellHere.columnSpan());
        out.append(cell(row, column));
        RtfWords::append(out, "cellx", m_edges.at(behind - 1));
        column = behind;
    }
    return out;
}

QByteArray RowWords::cell(int row, int column) const
{
    const QTextTableCell cell = m_table.cellAt(row, column);
    const QTextCharFormat format = cell.format();
    QByteArray out;
    if (cell.rowSpan() > 1)
        RtfWords::append(out, cell.row() == row || row == m_firstRow ? "clvmgf" : "clvmrg");
    if (format.verticalAlignment() == QTextCharFormat::AlignMiddle)
        RtfWords::append(out, "clvertalc");
    else if (format.verticalAlignment() == QTextCharFormat::AlignBottom)
        RtfWords::append(out, "clvertalb");
    if (format.hasProperty(RichTextProperty::CellBorders))
        BorderWords::append(out, format.stringProperty(RichTextProperty::CellBorders), m_colours, "cl");
    else
        out.append(m_borders);
    appendPadding(out, cell);
    const int colour = m_colours.number(format.background());
    if (colour != 0)
        RtfWords::append(out, "clcbpat", colour);
    return out;
}

/// Intended: the words for top and left are used for each other, as all programs do.
void RowWords::appendPadding(QByteArray &out, const QTextTableCell &cell) const
{
    struct Side
    {
        int property;
        const char *length;
        const char *unit;
        int usual;
    };
    const std::array<Side, 4> sides = {{{QTextFormat::TableCellTopPadding, "clpadl", "clpadfl", 0},
                                        {QTextFormat::TableCellLeftPadding, "clpadt", "clpadft", m_gap},
                                        {QTextFormat::TableCellBottomPadding, "clpadb", "clpadfb", 0},
                                        {QTextFormat::TableCellRightPadding, "clpadr", "clpadfr", m_gap}}};
    constexpr int twips = 3;
    for (const Side &side : sides) {
        const int length = paddingOf(m_table, cell, side.property);
        if (length == side.usual)
            continue;
        RtfWords::append(out, side.unit, twips);
        RtfWords::appendLength(out, side.length, length);
    }
}

QByteArray RowWords::borders() const
{
    const QTextTableFormat format = m_table.format();
    if (format.border() <= 0 || format.borderStyle() == QTextFrameFormat::BorderStyle_None)
        return {};
    QByteArray line;
    RtfWords::append(line, borderWord(format.borderStyle()));
    RtfWords::appendLength(line, "brdrw", qMax(1, toTwips(format.border())));
    if (format.borderBrush().style() != Qt::NoBrush && format.hasProperty(QTextFormat::FrameBorderBrush))
        RtfWords::append(line, "brdrcf", m_colours.number(format.borderBrush()));
    QByteArray out;
    for (const char *side : {"clbrdrt", "clbrdrl", "clbrdrb", "clbrdrr"}) {
        RtfWords::append(out, side);
        out.append(line);
    }
    return out;
}
