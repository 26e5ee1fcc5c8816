#include "TextReplacement.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

QTextCharFormat firstFormat(const QTextCursor &selection)
{
    QTextCursor first(selection.document());
    first.setPosition(selection.selectionStart());
    if (first.atBlockEnd())
        return first.blockCharFormat();
    first.setPosition(first.position() + 1); // a caret has the format of the character before it
    QTextCharFormat format = first.charFormat();
    format.clearProperty(QTextFormat::ObjectType); // text in place of a picture is none
    return format;
}

} // namespace

void TextReplacement::replace(QTextCursor &selection, const QString &text)
{
    const QTextCharFormat format = firstFormat(selection);
    selection.beginEditBlock();
    selection.removeSelectedText();
    selection.insertText(text, format);
    selection.endEditBlock();
}

void TextReplacement::replaceEach(QTextCursor &cursor, const QList<int> &positions, int length,
                                  const QString &text)
{
    for (const int position : positions) {
        cursor.setPosition(position);
        cursor.setPosition(position + length, QTextCursor::KeepAnchor);
        replace(cursor, text);
    }
}
