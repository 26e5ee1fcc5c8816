#include "UndoSteps.h"

#include <QKeyEvent>
#include <QTextCursor>
#include <QTextDocument>

namespace {

constexpr quint64 pauseLength = 2000; // milliseconds

/// True for the first character of a word.
bool startsWord(const QKeyEvent &key, const QTextCursor &caret)
{
    const bool isBlank = key.text().isEmpty() || key.text().at(0).isSpace() || !key.text().at(0).isPrint();
    return !isBlank && caret.position() > 0 && caret.document()->characterAt(caret.position() - 1).isSpace();
}

} // namespace

void UndoSteps::beforeKey(const QKeyEvent &key, const QTextCursor &caret)
{
    if (!continuesStep(key, caret))
        caret.document()->setModified(false); // Qt joins a change to the latest step only where this is set
    m_time = key.timestamp();
}

void UndoSteps::afterKey(const QTextCursor &caret)
{
    if (caret.document()->revision() == m_revision)
        return; // the key changed nothing
    m_revision = caret.document()->revision();
    m_position = caret.position();
}

/// Not after another change or a move of the caret: what is typed would join a paste.
bool UndoSteps::continuesStep(const QKeyEvent &key, const QTextCursor &caret) const
{
    const bool isInRow = caret.document()->revision() == m_revision && caret.position() == m_position;
    return isInRow && key.timestamp() - m_time < pauseLength && !startsWord(key, caret);
}
