#pragma once

#include "RtfRow.h"

#include <utility>

struct RtfToken;

/// The row that is being described, word by word.
class RtfRowReader
{
public:
    bool apply(const RtfToken &token);
    void reset();
    /// The words of lines that follow are a paragraph's.
    void leaveBorder() { m_isAtBorder = false; }
    bool isAtBorder() const { return m_isAtBorder; }
    bool isDescribed() const { return m_isDescribed; }
    /// True when it has been described since this was asked last.
    bool takeDescription() { return std::exchange(m_isNew, false); }
    const RtfRow &row() const { return m_row; }

private:
    void addCell(int edge);
    void openLine(RtfRow::Side side);
    RtfRow::Line *line() { return m_side < 0 ? nullptr : &m_next.lines[size_t(m_side)]; }
    void applyBorder(int style, const RtfToken &token);
    bool applyPadding(const RtfToken &token);

    RtfRow m_row;
    RtfRow::Cell m_next;
    bool m_isDescribed = false;
    bool m_isNew = false;
    int m_side = -1;           ///< of the next cell, whose line is described
    bool m_isAtBorder = false; ///< the words of lines belong to the row and not to a paragraph
};
