#include "ViewMarks.h"

namespace {

/// The marks themselves are compared, as an edit may have moved or emptied them.
bool isSame(const ViewMarks::Mark &one, const ViewMarks::Mark &other)
{
    return one.cursor.selectionStart() == other.cursor.selectionStart() &&
           one.cursor.selectionEnd() == other.cursor.selectionEnd() && one.format == other.format;
}

} // namespace

ViewMarks::Mark ViewMarks::mark(const QTextEdit &view, int first, int end, const QTextCharFormat &look)
{
    Mark mark;
    mark.cursor = view.textCursor();
    mark.cursor.setPosition(first);
    mark.cursor.setPosition(end, QTextCursor::KeepAnchor);
    mark.format = look;
    return mark;
}

void ViewMarks::show(QTextEdit &view, const QList<Mark> &marks)
{
    const QList<Mark> shown = view.extraSelections();
    if (!std::equal(marks.cbegin(), marks.cend(), shown.cbegin(), shown.cend(), isSame))
        view.setExtraSelections(marks);
}
