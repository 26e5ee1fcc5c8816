#include "RtfWriter.h"

#include "RtfBodyWriter.h"
#include "RtfHeader.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

QByteArray writeRange(const QTextDocument &document, int from, int to)
{
    RtfHeader header(document.defaultFont().family());
    QByteArray bytes = RtfBodyWriter(document, from, to, header).write();
    bytes.prepend(header.bytes());
    return bytes.append("}\n");
}

} // namespace

QByteArray RtfWriter::write(const QTextDocument &document)
{
    return writeRange(document, 0, document.characterCount());
}

QByteArray RtfWriter::writeSelection(const QTextCursor &cursor)
{
    const QTextDocument &document = *cursor.document();
    int end = cursor.selectionEnd();
    // No cursor reaches behind the last paragraph's end: that goes along where the paragraph is selected
    // whole.
    const QTextBlock last = document.lastBlock();
    const bool hasLast =
        end == last.position() + last.length() - 1 && cursor.selectionStart() <= last.position();
    if (hasLast && cursor.hasSelection())
        ++end;
    return writeRange(document, cursor.selectionStart(), end);
}
