#include "RtfRow.h"

#include <algorithm>

namespace {

constexpr int usualCellWidth = 1440;

} // namespace

void RtfRow::ensureCells(size_t count)
{
    const size_t described = cells.size();
    const int last = described == 0 ? left : cells.back().edge;
    const int before = described < 2 ? left : cells[described - 2].edge;
    const int width = described == 0 ? usualCellWidth : qMax(1, last - before);
    for (size_t i = described; i < count; ++i) {
        Cell cell;
        cell.edge = last + width * int(i - described + 1);
        cells.push_back(cell);
    }
}

int RtfRow::paddingOf(const Cell &cell, Side side) const
{
    if (cell.padding[side] >= 0)
        return cell.padding[side];
    if (padding[side] >= 0)
        return padding[side];
    return side == Left || side == Right ? gap : 0;
}

bool RtfRow::isLined(const Line &line) const
{
    return hasLines || std::all_of(cells.begin(), cells.end(), [&](const Cell &cell) {
               return std::all_of(cell.lines.begin(), cell.lines.end(),
                                  [&](const Line &own) { return own == line; });
           });
}
