#pragma once

#include "RtfRow.h"

struct RtfToken;

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
