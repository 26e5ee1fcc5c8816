#pragma once

#include <QTextFormat>

class QTextCursor;

/// Text in cells. Of an empty cell the paragraph has the format of the cell, shading and lines included,
/// which is none for the text that is typed there.
namespace CellText {

/// True with \a caret in the first paragraph of a cell while that is empty.
bool isAtEmptyCell(const QTextCursor &caret);

/// What is left of the format of a cell for its text.
QTextCharFormat format(const QTextCharFormat &cell);

} // namespace CellText
