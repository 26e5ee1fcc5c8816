#pragma once

#include <QByteArray>

class QTextDocument;
class QTextImageFormat;

/// The group of one picture: what it was read from as it came, else the document's own image as PNG. Empty
/// when the document has neither.
namespace RtfPicture {

QByteArray group(const QTextDocument &document, const QTextImageFormat &format);

} // namespace RtfPicture
