#include "CellEdges.h"

#include "CellArea.h"
#include "DocumentTables.h"
#include "ParagraphFormat.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
#include <QTextTable>

namespace {

double dotsPerPixel(const QTextTable &table)
{
    const QPaintDevice *device = table.document()->documentLayout()->paintDevice();
    return device->logicalDpiY() / ParagraphFormat::layoutDpi();
}

/// As wide as the lines above and below \a cell are: the outer ones at the sides are half beside it.
QRectF withSides(const QRectF &area, const QTextTable &table, const QTextTableCell &cell)
{
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    const double half = dotsPerPixel(table) / 2;
    return area.adjusted(-format.leftBorder() * half, 0, format.rightBorder() * half, 0);
}

} // namespace

CellEdges::CellEdges(const QTextDocument &document)
    : m_pageHeight(document.pageSize().height())
{
    for (QTextTable *table : DocumentTables::of(document)) {
        const bool hasLinesOfCells = table->format().borderCollapse() && table->format().border() == 0;
        if (hasLinesOfCells)
            close(*table);
    }
}

CellEdges::Border CellEdges::upperBorder(const QTextTable &table, const QTextTableCell &cell)
{
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    return {format.topBorder() * dotsPerPixel(table), format.topBorderStyle(), format.topBorderBrush()};
}

CellEdges::Border CellEdges::lowerBorder(const QTextTable &table, const QTextTableCell &cell)
{
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    return {format.bottomBorder() * dotsPerPixel(table), format.bottomBorderStyle(),
            format.bottomBorderBrush()};
}

/// The line above \a cell: its own, or that of the cell there.
CellEdges::Border CellEdges::lineAbove(const QTextTable &table, const QTextTableCell &cell)
{
    const Border own = upperBorder(table, cell);
    if (own.width > 0 || cell.row() == 0)
        return own;
    return lowerBorder(table, table.cellAt(cell.row() - 1, cell.column()));
}

CellEdges::Border CellEdges::lineBelow(const QTextTable &table, const QTextTableCell &cell)
{
    const Border own = lowerBorder(table, cell);
    const int next = cell.row() + cell.rowSpan();
    if (own.width > 0 || next >= table.rows())
        return own;
    return upperBorder(table, table.cellAt(next, cell.column()));
}

void CellEdges::close(QTextTable &table)
{
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() == row && cell.column() == column) // and not part of one that spans more
                close(table, cell);
        }
    }
}

/// Where the next row begins a page, Qt draws the lines at the sides of \a cell down to the edge.
void CellEdges::close(QTextTable &table, const QTextTableCell &cell)
{
    QRectF area = withSides(CellArea::of(table, cell), table, cell);
    closeAbove(area, lineAbove(table, cell));
    const int next = cell.row() + cell.rowSpan();
    if (next < table.rows())
        area.setBottom(CellArea::of(table, table.cellAt(next, cell.column())).top());
    closeBelow(area, lineBelow(table, cell));
}

/// Of the line of a cell that begins a page Qt shows the lower half.
void CellEdges::closeAbove(const QRectF &area, const Border &border)
{
    int page = int(area.top() / m_pageHeight);
    for (double start = (page + 1 / 3.) * m_pageHeight; start < area.bottom(); start += m_pageHeight) {
        const double above = start - area.top();
        const double missing = above > 1 ? border.width : above > -1 ? border.width / 2 : 0;
        m_lines.insert(page++, {QRectF(area.left(), start - missing, area.width(), missing), border});
    }
}

void CellEdges::closeBelow(const QRectF &area, const Border &border)
{
    int page = int(area.top() / m_pageHeight);
    for (double end = (page + 2 / 3.) * m_pageHeight; end <= area.bottom(); end += m_pageHeight)
        m_lines.insert(page++, {QRectF(area.left(), end, area.width(), border.width), border});
}

void CellEdges::paint(int page, QPainter &painter) const
{
    for (const Line &line : m_lines.values(page)) {
        if (line.area.height() > 0)
            paint(line, painter);
    }
}

void CellEdges::paint(const Line &line, QPainter &painter)
{
    const auto &[area, border] = line;
    const bool isDotted = border.style == QTextFrameFormat::BorderStyle_Dotted;
    if (isDotted || border.style == QTextFrameFormat::BorderStyle_Dashed) {
        painter.setPen(QPen(border.brush, area.height(), isDotted ? Qt::DotLine : Qt::DashLine, Qt::FlatCap));
        const QPointF half(0, area.height() / 2);
        painter.drawLine(area.topLeft() + half, area.topRight() + half);
    } else if (border.style == QTextFrameFormat::BorderStyle_Double) {
        const double third = area.height() / 3;
        painter.fillRect(area.adjusted(0, 0, 0, -2 * third), border.brush);
        painter.fillRect(area.adjusted(0, 2 * third, 0, 0), border.brush);
    } else {
        painter.fillRect(area, border.brush);
    }
}
