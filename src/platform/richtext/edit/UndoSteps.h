#pragma once

#include <QtGlobal>

class QKeyEvent;
class QTextCursor;

/// Parts what is typed into undo steps: a word with the blanks behind it, or what comes between two pauses.
/// Qt alone makes one step of all that is typed in a row.
class UndoSteps
{
public:
    /// To be called before \a key takes effect at \a caret, and after that with the caret as it then is.
    void beforeKey(const QKeyEvent &key, const QTextCursor &caret);
    void afterKey(const QTextCursor &caret);
    /// The next key begins a step, whatever it is.
    void end() { m_revision = -1; }

private:
    bool continuesStep(const QKeyEvent &key, const QTextCursor &caret) const;

    // As the latest change by a key left them
    int m_revision = -1;
    int m_position = -1;
    quint64 m_time = 0; ///< of the latest key, milliseconds
};
