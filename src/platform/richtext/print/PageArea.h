#pragma once

#include <QMarginsF>
#include <QSizeF>

/// Where on the paper the text of pages is. Lengths in inches.
struct PageArea
{
    QSizeF paper;
    QMarginsF margins;
    bool isMirrored = false; ///< left and right margins change sides on pages with even numbers

    QSizeF text() const { return paper.shrunkBy(margins); }
    double left(int pageNumber) const
    {
        return isMirrored && pageNumber % 2 == 0 ? margins.right() : margins.left();
    }
};
