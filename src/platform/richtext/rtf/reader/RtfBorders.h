#pragma once

#include "RtfWordRows.h"

#include <QString>

class RtfColorTable;
struct RtfToken;

/// The lines around paragraphs, each set of them known by one number; 0 is none.
class RtfBorders
{
public:
    /// Adds what \a token says to the row of words \a row; false when it says nothing about lines.
    bool apply(const RtfToken &token, int &row);

    /// True for words that name a side; the words behind one are about it.
    static bool isSide(const RtfToken &token);

    QString words(int row, const RtfColorTable &colors) const; ///< as RichTextProperty::Borders

private:
    RtfWordRows m_rows;
};
