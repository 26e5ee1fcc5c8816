#include "TextReplacement.h"

#include "RunReplacement.h"

#include <QTextCursor>
#include <algorithm>

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

void select(QTextCursor &cursor, int position, int length)
{
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
}

bool holdsLineEnd(QTextCursor &cursor, int position, int length)
{
    select(cursor, position, length);
    return cursor.selectedText().contains(QChar::ParagraphSeparator);
}

/// The first of \a positions that do not overlap, all ahead or all backwards. They are returned in
/// the order of the text, as places in the text before any of them is replaced.
QList<int> placesApart(QList<int>::const_iterator position, QList<int>::const_iterator end, int length,
                       int newLength)
{
    QList<int> places{*position};
    const auto isAhead = [&] { return position[1] >= position[0] + newLength; };
    const auto isBackwards = [&] { return position[1] + length <= position[0]; };
    if (position + 1 != end && isBackwards()) {
        for (; position + 1 != end && isBackwards(); ++position)
            places.append(position[1]);
        std::reverse(places.begin(), places.end());
        return places;
    }
    for (; position + 1 != end && isAhead(); ++position)
        places.append(position[1] + int(places.size()) * (length - newLength));
    return places;
}

void replaceAt(QTextCursor &cursor, int position, int length, const QString &text)
{
    select(cursor, position, length);
    TextReplacement::replace(cursor, text);
}

/// What spans several runs, or a picture, is replaced behind all the others.
void replaceApart(QTextCursor &cursor, const QList<int> &places, int length, const QString &text)
{
    const QList<int> left = RunReplacement::replace(*cursor.document(), places, length, text);
    for (const int index : left)
        replaceAt(cursor, places.at(index) + index * int(text.size() - length), length, text);
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
    if (text.contains(u'\n') ||
        (!positions.isEmpty() && holdsLineEnd(cursor, positions.constFirst(), length))) {
        for (const int position : positions)
            replaceAt(cursor, position, length, text);
        return;
    }
    for (auto next = positions.cbegin(); next != positions.cend();) {
        const QList<int> places = placesApart(next, positions.cend(), length, int(text.size()));
        replaceApart(cursor, places, length, text);
        next += places.size();
    }
}
