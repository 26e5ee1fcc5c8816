#include "ReadDocument.h"

#include "FrameSign.h"
#include "RtfReader.h"

#include <QTextCursor>

ReadDocument::ReadDocument(const QByteArray &rtf)
{
    RtfReader::read(rtf, m_document);
}

std::string ReadDocument::text() const
{
    QString text = m_document.toRawText();
    for (QChar &c : text) {
        if (c == QChar::ParagraphSeparator || c == FrameSign::begin || c == FrameSign::end)
            c = u'|';
        else if (c == QChar::LineSeparator)
            c = u'/';
    }
    return text.toStdString();
}

QTextCharFormat ReadDocument::formatOf(const QString &text) const
{
    const int place = int(m_document.toRawText().indexOf(text));
    QTextCursor cursor(m_document.findBlock(place));
    cursor.setPosition(place + 1);
    return place < 0 ? QTextCharFormat() : cursor.charFormat();
}

QByteArray framed(const QByteArray &body)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Serif;}{\\f1\\fswiss Sans;}}"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}" +
           body + "}";
}

std::string textOf(const QByteArray &rtf)
{
    return ReadDocument(rtf).text();
}
