#pragma once

#include <QList>
#include <QTextBlock>
#include <QTextCursor>

/// A selection as stretches of the document: one, or where cells of a table are selected, one for each cell.
namespace SelectionRanges {

struct Range
{
    int first = 0;
    int end = 0; ///< behind the last character; equal to first at a caret
};

QList<Range> of(const QTextCursor &selection);

/// Calls \a visit with each paragraph that the selection touches, in order, until it returns false.
template<class Visit>
void forEachParagraph(const QTextCursor &selection, Visit visit)
{
    for (const Range &range : of(selection)) {
        QTextBlock block = selection.document()->findBlock(range.first);
        // A selection that ends at the start of a paragraph does not touch it.
        const int last = qMax(range.first, range.end - 1);
        for (; block.isValid() && block.position() <= last; block = block.next()) {
            if (!visit(block))
                return;
        }
    }
}

} // namespace SelectionRanges
