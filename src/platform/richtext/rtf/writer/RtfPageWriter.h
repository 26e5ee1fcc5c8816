#pragma once

#include <QByteArray>

class QTextDocument;
class QTextFrameFormat;
struct RtfHeader;

/// What precedes the text and is about pages: their size and margins, headers and footers.
namespace RtfPageWriter {

/// The words, headers and footers of \a section, which is not the first.
QByteArray write(const QTextFrameFormat &section, RtfHeader &header);

/// Empty where \a document says nothing about them. \a header is filled with what headers and footers name.
QByteArray write(const QTextDocument &document, RtfHeader &header);

} // namespace RtfPageWriter
