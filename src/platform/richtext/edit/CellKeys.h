#pragma once

class QKeyEvent;
class QTextCursor;

/// Tab and Shift+Tab in a table.
namespace CellKeys {

/// Moves \a caret to the start of the next cell, or of the one before; behind the last cell the table gets a
/// row. False, and nothing done, for other keys and outside of tables.
bool press(const QKeyEvent &key, QTextCursor &caret);

} // namespace CellKeys
