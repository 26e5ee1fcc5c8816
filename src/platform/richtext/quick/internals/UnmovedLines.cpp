#include "UnmovedLines.h"

#include <QTextBlock>
#include <QTextLayout>
#include <QTextTableCell>
#include <QTextTableFormat>
#include <algorithm>

bool UnmovedLines::isFixed(const QTextTableFormat &table, const QTextTableCell &cell, double width)
{
    const QList<QTextLength> columns = table.columnWidthConstraints();
    const int end = cell.column() + cell.columnSpan();
    if (end > columns.size())
        return false;
    double fixed = (cell.columnSpan() - 1) * table.cellSpacing();
    for (int i = cell.column(); i < end; ++i)
        fixed += columns.at(i).type() == QTextLength::FixedLength ? columns.at(i).rawValue() : 0;
    constexpr double rounding = 0.1;
    return width <= fixed + rounding;
}

bool UnmovedLines::layOutAgain(const QTextBlock &paragraph)
{
    QTextLayout &layout = *paragraph.layout();
    if (paragraph.blockFormat().nonBreakableLines() ||
        layout.textOption().textDirection() != paragraph.textDirection())
        return false;
    QList<QRectF> areas;
    for (int i = 0; i < layout.lineCount(); ++i)
        areas.append(layout.lineAt(i).rect());
    layout.beginLayout();
    const bool areSame =
        !areas.isEmpty() && std::all_of(areas.cbegin(), areas.cend(), [&](const QRectF &area) {
            QTextLine line = layout.createLine();
            if (!line.isValid())
                return false;
            line.setLeadingIncluded(true);
            line.setLineWidth(area.width());
            line.setPosition(area.topLeft());
            return line.rect() == area && line.naturalTextWidth() <= area.width();
        });
    const bool isWhole = !layout.createLine().isValid();
    layout.endLayout();
    return areSame && isWhole;
}
