#pragma once

#include <QByteArray>

class QTextCursor;
class QTextDocument;

/// Writes a document, or a selection of it, as rich text: pure ASCII, the same bytes for the same content.
class RtfWriter
{
public:
    static QByteArray write(const QTextDocument &document);

    /// The selection of \a cursor as a document of its own, without what is about pages; an empty selection
    /// gives a document without text.
    static QByteArray writeSelection(const QTextCursor &cursor);
};
