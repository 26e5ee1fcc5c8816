#pragma once

#include "RtfWriter.h"

#include <QTextCursor>
#include <QTextDocument>

/// A document whose text is plain as long as no format says otherwise.
class PlainDocument : public QTextDocument
{
public:
    PlainDocument() { setDefaultFont(QFont(QStringLiteral("Arial"), 12)); }
};

/// The part of \a bytes behind the header and its tables, without the last brace.
inline QByteArray bodyOf(const QByteArray &bytes)
{
    const qsizetype headerEnd = bytes.indexOf('\n', bytes.indexOf("{\\*\\generator"));
    return bytes.chopped(2).mid(headerEnd + 1);
}

inline QByteArray bodyOf(const QTextDocument &document)
{
    return bodyOf(RtfWriter::write(document));
}
