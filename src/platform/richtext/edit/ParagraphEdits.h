#pragma once

class QTextBlock;
class QTextCursor;

/// Changes of whole paragraphs, on all that a selection touches and as one undo step each. Lengths are twips.
namespace ParagraphEdits {

/// True for dots, circles and squares; a numbered paragraph is none.
bool isBulleted(const QTextBlock &block);

/// Puts the first line's edge at \a indent; the other lines keep their distance from it.
void setIndent(const QTextCursor &selection, int indent);
void setRightIndent(const QTextCursor &selection, int indent);

enum class Numbered { BecomeBulleted, Stay };

/// Gives a mark and hangs the text \a distance and the mark's own width behind it. Neighbouring bulleted
/// paragraphs share one list; paragraphs that are bulleted already stay in theirs.
void addBullets(const QTextCursor &selection, int distance, Numbered numbered = Numbered::BecomeBulleted);

/// Takes the paragraphs out of bulleted lists; numbered ones stay as they are.
void removeBullets(const QTextCursor &selection);

/// Takes the paragraphs out of any list.
void leaveList(const QTextCursor &selection);

} // namespace ParagraphEdits
