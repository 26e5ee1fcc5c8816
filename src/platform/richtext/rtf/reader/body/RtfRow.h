#pragma once

#include <QtGlobal>
#include <array>
#include <vector>

/// What control words say about a row of a table. Lengths in twips.
struct RtfRow
{
    enum Side { Left, Top, Right, Bottom, SideCount };
    using Padding = std::array<int, SideCount>; ///< -1 where nothing is said
    static constexpr Padding noPadding = {-1, -1, -1, -1};

    struct Line
    {
        int style = 0; ///< RtfWord, 0 is none
        int width = -1;
        int color = 0; ///< number in the colour table

        bool operator==(const Line &other) const = default;
    };
    struct Cell
    {
        int edge = 0; ///< the right one, from the same place as \a left
        int shading = 0;
        int alignment = 0; ///< QTextCharFormat::VerticalAlignment, 0 is the top
        bool joinsLeft = false;
        bool joinsAbove = false;
        Padding padding = noPadding;
        std::array<Line, SideCount> lines;

        bool operator==(const Cell &other) const = default;
    };

    static constexpr size_t mostCells = 256;

    int left = 0;
    int gap = 0; ///< half of the space between cells
    Padding padding = noPadding;
    int alignment = 0; ///< Qt::Alignment of the row between the margins, 0 is the left
    bool isHeader = false;
    bool isRightToLeft = false;
    int borderStyle = 0; ///< QTextFrameFormat::BorderStyle, 0 is none
    int borderWidth = 0;
    int borderColor = 0;
    bool hasLines = false; ///< it says some for all of its cells
    std::vector<Cell> cells;

    bool operator==(const RtfRow &other) const = default;

    /// Makes room for \a count cells, those that the file does not describe as wide as the last one.
    void ensureCells(size_t count);

    /// Whether all of its cells have \a line at all sides, or lines that are said for the row as a whole.
    bool isLined(const Line &line) const;

    /// Between the edge of a cell and its text.
    int paddingOf(const Cell &cell, Side side) const;
};
