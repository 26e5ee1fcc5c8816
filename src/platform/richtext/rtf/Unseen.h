#pragma once

#include <QByteArray>
#include <QList>
#include <QTextCharFormat>

/// What a file has between two characters that is not shown: bookmarks, comments, hidden text. It is kept in
/// the format of the character behind it, or of the end of the paragraph, and written back before that.
///
/// Typing and splitting copy a format; the content is known by its place in memory, so that it is written
/// once.
namespace Unseen {

struct Run
{
    QString text; ///< paragraphs are parted by QChar::ParagraphSeparator
    QTextCharFormat format;
};

/// Rich text: bytes, runs in which no format means plain text, and bytes again.
struct Piece
{
    QByteArray before;
    QList<Run> text;
    QByteArray after;
};

using Pieces = QList<Piece>;

/// Adds \a pieces to what \a format has already.
void add(QTextCharFormat &format, Pieces pieces);

/// Null where there is nothing; it lives as long as \a format or a copy of it.
const Pieces *of(const QTextFormat &format);

} // namespace Unseen
