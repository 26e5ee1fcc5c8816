#include "RtfReader.h"

#include "RtfParser.h"

#include <QTextDocument>

namespace {

/// Where the first group begins, behind a mark of the byte order and blanks; -1 when it is not rich text.
qsizetype startOf(const QByteArray &bytes)
{
    const QByteArrayView mark("\xEF\xBB\xBF");
    qsizetype start = bytes.startsWith(mark) ? mark.size() : 0;
    while (start < bytes.size() && QByteArrayView(" \t\r\n").contains(bytes.at(start)))
        ++start;
    return QByteArrayView(bytes).sliced(start).startsWith("{\\rtf") ? start : -1;
}

} // namespace

bool RtfReader::recognises(const QByteArray &bytes)
{
    return startOf(bytes) >= 0;
}

void RtfReader::read(const QByteArray &bytes, QTextDocument &document, const QString &fileName)
{
    const bool undoes = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    RtfParser(bytes, document, fileName).run();
    document.setUndoRedoEnabled(undoes);
    document.setModified(false);
}
