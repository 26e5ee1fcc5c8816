#include "RtfTableFormat.h"

#include "ParagraphBorders.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfColorTable.h"
#include "RtfKeywords.h"
#include "RtfTable.h"
#include "Twips.h"

#include <QStringList>
#include <array>

namespace {

double toPixels(int twips)
{
    return Twips::toPixels(twips, ParagraphFormat::layoutDpi());
}

/// In fractions of a pixel, from which the same twips are written.
double exactly(int twips)
{
    return twips * ParagraphFormat::layoutDpi() / Twips::perInch;
}

void setPadding(QTextTableCellFormat &format, const RtfRow &row, const RtfRow::Cell &cell)
{
    constexpr std::array<int, RtfRow::SideCount> properties = {
        QTextFormat::TableCellLeftPadding, QTextFormat::TableCellTopPadding,
        QTextFormat::TableCellRightPadding, QTextFormat::TableCellBottomPadding};
    for (int side = 0; side < RtfRow::SideCount; ++side) {
        if (const int twips = row.paddingOf(cell, RtfRow::Side(side)); twips > 0)
            format.setProperty(properties[size_t(side)], exactly(twips));
    }
}

struct CellSide
{
    ParagraphBorders::Side kept;
    QTextFormat::Property width;
    QTextFormat::Property style;
    QTextFormat::Property brush;
};

/// In the order of RtfRow::Side.
constexpr std::array<CellSide, RtfRow::SideCount> cellSides = {
    {{ParagraphBorders::Left, QTextFormat::TableCellLeftBorder, QTextFormat::TableCellLeftBorderStyle,
      QTextFormat::TableCellLeftBorderBrush},
     {ParagraphBorders::Top, QTextFormat::TableCellTopBorder, QTextFormat::TableCellTopBorderStyle,
      QTextFormat::TableCellTopBorderBrush},
     {ParagraphBorders::Right, QTextFormat::TableCellRightBorder, QTextFormat::TableCellRightBorderStyle,
      QTextFormat::TableCellRightBorderBrush},
     {ParagraphBorders::Bottom, QTextFormat::TableCellBottomBorder, QTextFormat::TableCellBottomBorderStyle,
      QTextFormat::TableCellBottomBorderBrush}}};

QTextFrameFormat::BorderStyle styleOf(const RtfRow::Line &line)
{
    switch (RtfWord(line.style)) {
    case RtfWord::BorderDouble:
        return QTextFrameFormat::BorderStyle_Double;
    case RtfWord::BorderDotted:
        return QTextFrameFormat::BorderStyle_Dotted;
    case RtfWord::BorderDashed:
        return QTextFrameFormat::BorderStyle_Dashed;
    default:
        return QTextFrameFormat::BorderStyle_Solid;
    }
}

/// Pixels; of two lines the file gives the width of one, and their distance is the same.
double widthOf(const RtfRow::Line &line)
{
    constexpr int widest = 240; // twips
    const double one = qMax(1.0, toPixels(qMin(line.width, widest)));
    return styleOf(line) == QTextFrameFormat::BorderStyle_Double ? 3 * one : one;
}

/// Shows the lines of one cell, and keeps their words.
void setLines(QTextTableCellFormat &format, const RtfRow::Cell &cell, const RtfColorTable &colors)
{
    ParagraphBorders borders;
    for (size_t side = 0; side < cellSides.size(); ++side) {
        const RtfRow::Line &line = cell.lines[side];
        if (line.style == 0)
            continue;
        const QColor color = colors.color(line.color);
        format.setProperty(cellSides[side].width, widthOf(line));
        format.setProperty(cellSides[side].style, int(styleOf(line)));
        format.setProperty(cellSides[side].brush, QBrush(color.isValid() ? color : QColor(Qt::black)));
        ParagraphBorder &kept = borders[cellSides[side].kept];
        kept.style = QString::fromLatin1(RtfKeywords::spelling(RtfWord(line.style)));
        kept.width = line.width;
        kept.color = color;
    }
    format.setProperty(RichTextProperty::CellBorders, borders.words());
}

/// One look for the whole table, the first row's that has lines, where cells have none of their own.
void setBorder(QTextTableFormat &format, const RtfTable &table, const RtfTableGrid &grid,
               const RtfColorTable &colors)
{
    format.setBorder(0);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_None);
    format.setBorderCollapse(table.hasLinesOfCells);
    if (table.hasLinesOfCells)
        return;
    for (const RtfTableGrid::Cell &cell : grid.cells) {
        const RtfRow &row = table.definitions[size_t(cell.definition)];
        if (row.borderStyle == 0)
            continue;
        const QColor color = colors.color(row.borderColor);
        format.setBorder(qMax(1.0, toPixels(row.borderWidth)));
        format.setBorderStyle(QTextFrameFormat::BorderStyle(row.borderStyle));
        format.setBorderBrush(color.isValid() ? color : QColor(Qt::black));
        format.setBorderCollapse(true);
        return;
    }
}

int headerRows(const RtfTable &table, const RtfTableGrid &grid)
{
    int rows = 0;
    for (const RtfTableGrid::Cell &cell : grid.cells) {
        if (!table.definitions[size_t(cell.definition)].isHeader)
            break;
        rows = cell.row + 1;
    }
    return rows;
}

} // namespace

QTextTableFormat RtfTableFormat::table(const RtfTable &table, const RtfTableGrid &grid,
                                       const RtfColorTable &colors)
{
    const RtfRow &first = table.definitions[size_t(grid.cells.front().definition)];
    QTextTableFormat format;
    QStringList edges;
    QList<QTextLength> widths;
    for (size_t i = 1; i < grid.edges.size(); ++i) {
        edges.append(QString::number(grid.edges[i]));
        const double width = toPixels(grid.edges[i]) - toPixels(grid.edges[i - 1]);
        widths.append(QTextLength(QTextLength::FixedLength, qMax(1.0, width)));
    }
    format.setColumnWidthConstraints(widths);
    format.setProperty(RichTextProperty::RowTwips, edges.join(u' '));
    format.setCellSpacing(0);
    format.setCellPadding(0); // cells have their own
    if (grid.edges.front() != 0)
        format.setLeftMargin(exactly(grid.edges.front()));
    if (first.alignment != 0)
        format.setAlignment(Qt::Alignment(first.alignment));
    if (first.isRightToLeft)
        format.setLayoutDirection(Qt::RightToLeft);
    if (const int rows = headerRows(table, grid); rows > 0)
        format.setHeaderRowCount(rows);
    setBorder(format, table, grid, colors);
    return format;
}

QTextTableCellFormat RtfTableFormat::cell(const RtfTable &table, const RtfTableGrid::Cell &cell,
                                          const RtfColorTable &colors)
{
    const RtfRow &row = table.definitions[size_t(cell.definition)];
    const RtfRow::Cell &described = row.cells[size_t(cell.place)];
    QTextTableCellFormat format;
    setPadding(format, row, described);
    if (cell.rowSpan > 1)
        format.setTableCellRowSpan(cell.rowSpan);
    if (cell.columnSpan > 1)
        format.setTableCellColumnSpan(cell.columnSpan);
    if (described.alignment != 0)
        format.setVerticalAlignment(QTextCharFormat::VerticalAlignment(described.alignment));
    if (table.hasLinesOfCells)
        setLines(format, described, colors);
    const QColor shading = colors.color(described.shading);
    if (shading.isValid())
        format.setBackground(shading);
    return format;
}
