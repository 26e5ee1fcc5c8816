#pragma once

#include "RtfFlow.h"
#include "RtfRow.h"

#include <vector>

/// One table as the file has it: cells in a row, rows in order. The cells' paragraphs are one flow.
struct RtfTable
{
    struct Row
    {
        int cellsEnd = 0;
        int definition = 0;
    };

    RtfFlow flow;
    std::vector<int> cells; ///< index behind the cell's last item of \a flow
    std::vector<Row> rows;
    std::vector<RtfRow> definitions;
    bool hasLinesOfCells = false; ///< which are not alike around all of them
};
