#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QTextCharFormat>
#include <memory>

class QTextDocument;

/// What a file has between two characters that is not shown: bookmarks, comments, hidden text. It is kept in
/// the format of the character behind it, or of the end of the paragraph, and written back before that.
///
/// Typing and splitting copy a format; a piece is known by its place in memory, and belongs to one position.
namespace Unseen {

struct Run
{
    QString text; ///< paragraphs are parted by QChar::ParagraphSeparator
    QTextCharFormat format;

    bool operator==(const Run &) const = default;
};

/// Rich text: bytes, runs in which no format means plain text, and bytes again.
struct Piece
{
    QByteArray before;
    QList<Run> text;
    QByteArray after;

    bool operator==(const Piece &) const = default;
};

using Pieces = QList<std::shared_ptr<const Piece>>;

/// Gives \a format pieces in place of those that it has.
void set(QTextCharFormat &format, const Pieces &pieces);

Pieces of(const QTextFormat &format);

/// Whether \a format has pieces.
bool isIn(const QTextFormat &format);

/// Where each piece of \a document belongs: at the first run of characters that has it; where none has, at
/// the last paragraph's end, since splitting a paragraph copies its end to the first half.
QHash<const Piece *, int> places(const QTextDocument &document);

} // namespace Unseen
