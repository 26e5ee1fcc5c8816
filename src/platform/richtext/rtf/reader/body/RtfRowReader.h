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
    void applyBorder(int style);
    bool applyPadding(const RtfToken &token);

    RtfRow m_row;
    RtfRow::Cell m_next;
    bool m_isDescribed = false;
    bool m_isNew = false;
    bool m_isAtBorder = false; ///< the words of lines belong to the row and not to a paragraph
};
