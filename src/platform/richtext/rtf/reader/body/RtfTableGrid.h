#pragma once

#include <vector>

/// The cells of a table on one grid of columns for all rows, which have their edges where they like in the
/// file.
struct RtfTableGrid
{
    struct Cell
    {
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
        int definition = 0; ///< of its row
        int place = 0;      ///< in the definition
        int firstPart = -1; ///< the table's cell that it shows, -1 for none
    };

    std::vector<int> edges;  ///< twips: the left edge of the table and the right edges of the columns
    std::vector<Cell> cells; ///< row by row, each row from the left
    int rows = 0;

    int columns() const { return int(edges.size()) - 1; }
};
