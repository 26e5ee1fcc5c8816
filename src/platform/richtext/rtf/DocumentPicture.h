#pragma once

#include <QImage>
#include <QSizeF>

class QTextDocument;
class QTextImageFormat;

/// The pictures that a document holds as resources.
namespace DocumentPicture {

/// Null where the document has none of that name, or one that cannot be read.
QImage image(const QTextDocument &document, const QTextImageFormat &format);

/// The size that \a format asks for, in pixels, for a picture of \a pixels; a side that it leaves open
/// follows the other.
QSizeF shownSize(const QTextImageFormat &format, const QSize &pixels);

/// Empty when the image is.
QByteArray asPng(const QImage &image);

} // namespace DocumentPicture
