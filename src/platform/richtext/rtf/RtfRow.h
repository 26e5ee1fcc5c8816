#pragma once

#include <QtGlobal>
#include <vector>

struct RtfToken;

/// What control words say about a row of a table. Lengths in twips.
struct RtfRow
{
    struct Cell
    {
        int edge = 0; ///< the right one, from the same place as \a left
        int shading = 0;
        int alignment = 0; ///< QTextCharFormat::VerticalAlignment, 0 is the top
        bool joinsLeft = false;
        bool joinsAbove = false;

        bool operator==(const Cell &other) const = default;
    };

    static constexpr size_t mostCells = 256;

    int left = 0;
    int gap = 0;       ///< half of the space between cells
    int alignment = 0; ///< Qt::Alignment of the row between the margins, 0 is the left
    bool isHeader = false;
    bool isRightToLeft = false;
    int borderStyle = 0; ///< QTextFrameFormat::BorderStyle, 0 is none
    int borderWidth = 0;
    int borderColor = 0;
    std::vector<Cell> cells;

    bool operator==(const RtfRow &other) const = default;

    /// Makes room for \a count cells, those that the file does not describe as wide as the last one.
    void ensureCells(size_t count);
};

/// The row that is being described, word by word.
class RtfRowReader
{
public:
    bool apply(const RtfToken &token);
    void reset();
    /// The words of lines that follow are a paragraph's.
    void leaveBorder() { m_isAtBorder = false; }
    bool isDescribed() const { return m_isDescribed; }
    const RtfRow &row() const { return m_row; }

private:
    void addCell(int edge);
    void applyBorder(int style);

    RtfRow m_row;
    RtfRow::Cell m_next;
    bool m_isDescribed = false;
    bool m_isAtBorder = false; ///< the words of lines belong to the row and not to a paragraph
};
