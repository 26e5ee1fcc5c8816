#pragma once

#include <QList>
#include <QString>

class QTextCursor;

/// Puts text in place of other text in a document.
namespace TextReplacement {

/// Puts \a text in place of the selection, in the format of the selection's first character. The caret ends
/// up behind it. One undo step.
void replace(QTextCursor &selection, const QString &text);

/// Puts \a text in place of \a length characters at each of \a positions, one after the other, as replace()
/// does. Each position is one in the text as the replacements before it have left it. Part of the edit block
/// that the caller has begun with \a cursor, whose place in the text is lost.
void replaceEach(QTextCursor &cursor, const QList<int> &positions, int length, const QString &text);

} // namespace TextReplacement
