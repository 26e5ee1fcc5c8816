#pragma once

#include "PlainText.h"

#include <QByteArray>
#include <QString>

class QTextCursor;
class QTextDocument;

/// Documents on disk, rich or plain, in and out of a QTextDocument.
namespace RichTextFile {

enum class Format { Rtf = 0, Text = 1 };

struct Loaded
{
    Format format = Format::Rtf;
    PlainText::LineEnd lineEnd = PlainText::LineEnd::Lf; ///< of a plain file; Lf otherwise
};

/// True when the ending of \a path is .rtf or .txt, in any case.
bool isDocumentName(const QString &path);

/// Fills the empty, detached \a document from the file \a path; what is not rich text is taken as plain text.
/// Throws RuntimeError as Files::read does; \a document is then untouched.
Loaded load(const QString &path, QTextDocument &document);

/// Throws RuntimeError as Files::write does; the old file is then left whole.
void save(const QString &path, const QTextDocument &document, Format format, PlainText::LineEnd lineEnd);

/// The plain characters, one for each position of \a document, paragraphs and forced lines ending in "\n".
QString text(const QTextDocument &document);

/// The same for a selection: the stretch between its ends.
QString text(const QTextCursor &selection);

} // namespace RichTextFile
