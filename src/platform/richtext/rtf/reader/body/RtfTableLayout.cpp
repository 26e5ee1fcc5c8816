#include "RtfTableLayout.h"

#include "RtfTable.h"

#include <algorithm>
#include <set>

namespace {

constexpr size_t mostEdges = 512;
constexpr size_t mostPlaces = 4000000; // rows by columns of one grid
constexpr int sameEdge = 15;           // twips, a pixel: editors round the edges of each row anew

} // namespace

RtfTableLayout::RtfTableLayout(const RtfTable &table)
    : m_table(table)
    , m_nextParts(table.cells.size(), -1)
    , m_lastParts(table.cells.size())
{
    for (size_t i = 0; i < m_lastParts.size(); ++i)
        m_lastParts[i] = int(i);
}

std::vector<RtfTableGrid> RtfTableLayout::grids()
{
    std::vector<RtfTableGrid> grids;
    const int rows = int(m_table.rows.size());
    for (int row = 0; row < rows;) {
        const int end = segmentEnd(row);
        grids.push_back(grid(row, end));
        row = end;
    }
    return grids;
}

int RtfTableLayout::segmentEnd(int firstRow) const
{
    std::set<int> edges;
    int known = -1;
    int row = firstRow;
    for (; row < int(m_table.rows.size()); ++row) {
        const int definition = m_table.rows[size_t(row)].definition;
        if (definition != known) {
            for (const RtfRow::Cell &cell : m_table.definitions[size_t(definition)].cells)
                edges.insert(cell.edge);
            known = definition;
        }
        const size_t places = size_t(row - firstRow + 1) * (edges.size() + 1);
        if (row > firstRow && (edges.size() > mostEdges || places > mostPlaces))
            break;
    }
    return row;
}

/// Edges nearer to each other than a pixel are one, as long as no cell is that narrow itself.
std::vector<int> RtfTableLayout::clusteredEdges(int firstRow, int endRow) const
{
    const int first = m_table.rows[size_t(firstRow)].definition;
    const int last = m_table.rows[size_t(endRow) - 1].definition;
    std::set<int> edges;
    int left = m_table.definitions[size_t(first)].left;
    int narrowest = sameEdge + 1;
    for (int i = first; i <= last; ++i) {
        const RtfRow &row = m_table.definitions[size_t(i)];
        left = std::min(left, row.left);
        int before = row.left;
        for (const RtfRow::Cell &cell : row.cells) {
            edges.insert(cell.edge);
            narrowest = std::min(narrowest, cell.edge - before);
            before = cell.edge;
        }
    }
    std::vector<int> clustered = {left};
    for (const int edge : edges) {
        if (clustered.size() == 1 || edge - clustered.back() >= narrowest)
            clustered.push_back(edge);
    }
    return clustered;
}

/// The first cell of a row begins at the table's left edge and the last one ends at its right edge.
std::vector<RtfTableLayout::Span> RtfTableLayout::spans(int definition, const std::vector<int> &edges) const
{
    std::vector<Span> spans;
    const RtfRow &row = m_table.definitions[size_t(definition)];
    const int columns = int(edges.size()) - 1;
    int column = 0;
    for (int place = 0; place < int(row.cells.size()); ++place) {
        const RtfRow::Cell &cell = row.cells[size_t(place)];
        const auto behind = std::upper_bound(edges.begin() + 1, edges.end(), cell.edge);
        const bool isLast = place + 1 == int(row.cells.size());
        const int end = isLast ? columns : int(behind - edges.begin()) - 1;
        if (cell.joinsLeft && !spans.empty()) {
            spans.back().columnSpan = end - spans.back().column;
            spans.back().lastPlace = place;
        } else {
            spans.push_back({column, end - column, place, place, cell.joinsAbove});
        }
        column = end;
    }
    return spans;
}

RtfTableGrid RtfTableLayout::grid(int firstRow, int endRow)
{
    RtfTableGrid grid;
    grid.edges = clusteredEdges(firstRow, endRow);
    std::vector<int> above(size_t(grid.columns()), -1);
    std::vector<Span> known;
    int knownDefinition = -1;
    for (int row = firstRow; row < endRow; ++row) {
        const int definition = m_table.rows[size_t(row)].definition;
        if (definition != knownDefinition)
            known = spans(definition, grid.edges);
        knownDefinition = definition;
        addRow(grid, row, known, above);
        ++grid.rows;
    }
    return grid;
}

void RtfTableLayout::addRow(RtfTableGrid &grid, int row, const std::vector<Span> &spans,
                            std::vector<int> &above)
{
    for (const Span &span : spans) {
        int &number = above[size_t(span.column)];
        if (span.joinsAbove && number >= 0) {
            RtfTableGrid::Cell &upper = grid.cells[size_t(number)];
            if (upper.row + upper.rowSpan == grid.rows && upper.columnSpan == span.columnSpan) {
                ++upper.rowSpan;
                appendParts(upper, row, span);
                continue;
            }
        }
        RtfTableGrid::Cell cell;
        cell.row = grid.rows;
        cell.column = span.column;
        cell.columnSpan = span.columnSpan;
        cell.definition = m_table.rows[size_t(row)].definition;
        cell.place = span.firstPlace;
        appendParts(cell, row, span);
        number = int(grid.cells.size());
        grid.cells.push_back(cell);
    }
}

/// What merged cells hold besides the first one is mostly nothing, but it is not lost.
void RtfTableLayout::appendParts(RtfTableGrid::Cell &cell, int row, const Span &span)
{
    const int first = firstCell(row);
    const int end = m_table.rows[size_t(row)].cellsEnd;
    for (int place = span.firstPlace; place <= span.lastPlace && first + place < end; ++place) {
        const int part = first + place;
        if (cell.firstPart < 0) {
            cell.firstPart = part;
        } else if (!isEmpty(part)) {
            int &last = m_lastParts[size_t(cell.firstPart)];
            m_nextParts[size_t(last)] = part;
            last = part;
        }
    }
}

bool RtfTableLayout::isEmpty(int part) const
{
    const auto &items = m_table.flow.items;
    const int first = part == 0 ? 0 : m_table.cells[size_t(part) - 1];
    const int end = m_table.cells[size_t(part)];
    const int textBefore = first == 0 ? 0 : items[size_t(first) - 1].textEnd;
    const bool hasTable = std::any_of(items.begin() + first, items.begin() + end,
                                      [](const RtfFlow::Item &item) { return item.table >= 0; });
    return !hasTable && (first == end || items[size_t(end) - 1].textEnd == textBefore);
}

int RtfTableLayout::firstCell(int row) const
{
    return row == 0 ? 0 : m_table.rows[size_t(row) - 1].cellsEnd;
}
