#pragma once

class QTextCursor;
class QTextEdit;

/// Moves of the caret that do not wait for the layout of a long text.
namespace CaretPlacing {

/// Gives \a view the selection of \a cursor and scrolls to it. Where the text there has not been laid out the
/// view stays as it is, since scrolling would compute the layout of everything above at once.
void set(QTextEdit &view, const QTextCursor &cursor);

} // namespace CaretPlacing
