#pragma once

#include <QString>

class QImage;
class QSizeF;
class QTextCursor;
class QTextDocument;

/// The pictures that documents hold as resources of their own.
namespace Pictures {

/// Puts \a image in place of the selection of \a cursor, not wider than its line on a page whose text is
/// \a page pixels wide.
void insert(QTextCursor &cursor, const QImage &image, double page);

/// The same with the picture file \a path, turned as its camera says. Inserts nothing where it cannot be
/// read.
void insertFile(QTextCursor &cursor, const QString &path, double page);

/// The shown size of the picture at \a position of \a document in pixels; empty where there is none.
QSizeF sizeAt(const QTextDocument &document, int position);

/// What a line at \a position has for a picture, in pixels, on a page whose text is \a page pixels wide.
double lineWidth(const QTextDocument &document, int position, double page);

/// Shows the picture at \a position of \a document in another size, in pixels.
void resize(QTextDocument &document, int position, const QSizeF &size);

/// Hands the pictures of \a from, whose text is about to be inserted into \a to, over to it, under names that
/// are free there.
void move(QTextDocument &from, QTextDocument &to);

/// The picture that is all of the selection of \a cursor; null when there is more, or none.
QImage selected(const QTextCursor &cursor);

/// Makes each picture's name hold its bytes, as a data: URL, so that HTML carries it.
void nameByBytes(QTextDocument &document);

/// Gives every picture of \a document that is wider than its paragraph or cell, or whose line is higher than
/// \a page, the largest size that fits. \a page is the size of a page's text in pixels.
void shrinkTo(const QSizeF &page, QTextDocument &document);

} // namespace Pictures
