#include "RtfWriter.h"

#include "RichTextProperties.h"
#include "RtfBodyWriter.h"
#include "RtfHeader.h"
#include "RtfPageWriter.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

namespace {

/// Without a desktop to ask, a document's font is as empty as what rich text calls plain.
QFont standardFont(const QTextDocument &document)
{
    QFont font = document.defaultFont();
    if (font.family().isEmpty())
        font.setFamily(QStringLiteral("Times New Roman"));
    if (font.pointSizeF() <= 0 && font.pixelSize() <= 0)
        font.setPointSize(12);
    return font;
}

RtfHeader headerOf(const QTextDocument &document)
{
    RtfHeader header(standardFont(document));
    header.fonts.setWords(document.rootFrame()->frameFormat().property(RichTextProperty::FontWords).toMap());
    header.styles.set(TextStyles::of(document), header.fonts, header.colours);
    return header;
}

QByteArray whole(const RtfHeader &header, const QByteArray &pages, QByteArray body)
{
    return body.prepend(header.bytes() + pages).append("}\n");
}

} // namespace

QByteArray RtfWriter::write(const QTextDocument &document)
{
    RtfHeader header = headerOf(document);
    QByteArray body =
        RtfBodyWriter(document, 0, document.characterCount(), header, RtfBodyWriter::Sections::Written)
            .write();
    const QByteArray pages = RtfPageWriter::write(document, header);
    return whole(header, pages, std::move(body));
}

QByteArray RtfWriter::writeSelection(const QTextCursor &cursor)
{
    const QTextDocument &document = *cursor.document();
    int end = cursor.selectionEnd();
    // No cursor reaches behind the last paragraph's end: that is included where the paragraph is selected
    // whole.
    const QTextBlock last = document.lastBlock();
    const bool hasLast =
        end == last.position() + last.length() - 1 && cursor.selectionStart() <= last.position();
    if (hasLast && cursor.hasSelection())
        ++end;
    RtfHeader header = headerOf(document);
    QByteArray body = RtfBodyWriter(document, cursor.selectionStart(), end, header).write();
    return whole(header, {}, std::move(body));
}
