#pragma once

#include "RtfTableGrid.h"

#include <QtGlobal>

struct RtfTable;

/// Lays tables out on grids.
class RtfTableLayout
{
public:
    explicit RtfTableLayout(const RtfTable &table);

    /// Mostly one; rows that share too few edges go to a grid of their own, lest the grid grow with the
    /// square.
    std::vector<RtfTableGrid> grids();

    /// The table's cell whose text follows that of \a part in the same cell of the grid, -1 for none.
    int nextPart(int part) const { return m_nextParts[size_t(part)]; }

private:
    struct Span ///< one cell of a row, those merged into it included
    {
        int column = 0;
        int columnSpan = 0;
        int firstPlace = 0;
        int lastPlace = 0;
        bool joinsAbove = false;
    };

    int segmentEnd(int firstRow) const;
    RtfTableGrid grid(int firstRow, int endRow);
    std::vector<int> clusteredEdges(int firstRow, int endRow) const;
    std::vector<Span> spans(int definition, const std::vector<int> &edges) const;
    void addRow(RtfTableGrid &grid, int row, const std::vector<Span> &spans, std::vector<int> &above);
    void appendParts(RtfTableGrid::Cell &cell, int row, const Span &span);
    bool isEmpty(int part) const;
    int firstCell(int row) const;

    const RtfTable &m_table;
    std::vector<int> m_nextParts;
    std::vector<int> m_lastParts; ///< of the chain that begins with a part
};
