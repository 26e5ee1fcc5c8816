#pragma once

#include <QByteArray>

class QTextDocument;
struct RtfHeader;

/// What precedes the text and is about pages: their size and margins, headers and footers.
namespace RtfPageWriter {

/// Empty where \a document says nothing about them. \a header is filled with what headers and footers name.
QByteArray write(const QTextDocument &document, RtfHeader &header);

} // namespace RtfPageWriter
