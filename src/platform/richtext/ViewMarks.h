#pragma once

#include <QTextEdit>

/// What is laid over the text of a view when it is painted: the looks of links and of misspelt words. The
/// document and its layout do not change.
namespace ViewMarks {

using Mark = QTextEdit::ExtraSelection;

/// \a look for the characters from \a first up to \a end.
Mark mark(const QTextEdit &view, int first, int end, const QTextCharFormat &look);

/// Shows \a marks alone. Costs nothing where they are shown already.
void show(QTextEdit &view, const QList<Mark> &marks);

} // namespace ViewMarks
