#pragma once

#include <QByteArray>
#include <QString>

class QTextDocument;

/// Reads rich text into a document. It shows nothing and asks nothing; what the format has beyond Qt's own
/// properties is kept as RichTextProperty.
class RtfReader
{
public:
    /// True when \a bytes begin as rich text does: "{\rtf", behind a byte order mark or blanks if need be.
    static bool recognises(const QByteArray &bytes);

    /// Fills \a document, which has to be empty and detached from any view. A damaged file yields what could
    /// be read. The undo stack is left empty and the document unmodified. \a fileName is what fields show
    /// that name the document's file.
    static void read(const QByteArray &bytes, QTextDocument &document, const QString &fileName = {});
};
