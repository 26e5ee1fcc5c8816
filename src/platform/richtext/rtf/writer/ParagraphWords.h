#pragma once

#include "WordSet.h"

#include <QList>
#include <QTextFormat>

class QTextDocument;
class QTextList;
struct RtfHeader;

/// The control words of a document's paragraph formats, made once for each format.
class ParagraphWords
{
public:
    struct Paragraph
    {
        int words = -1;                  ///< equal for formats that are written alike
        const QTextList *list = nullptr; ///< the list whose mark is before it
    };

    /// \a formats are those of \a document, by index.
    ParagraphWords(const QTextDocument &document, const QList<QTextFormat> &formats, RtfHeader &header);

    /// From here on sections are written with the paragraphs that begin them, and say themselves that they
    /// begin pages. False when no format has any.
    bool beginSections();

    Paragraph paragraph(int format);

    /// What differs from a paragraph without properties, for Paragraph::words; 0 is that paragraph.
    const QByteArray &words(int number) const { return m_words.at(number); }

private:
    Paragraph make(const QTextBlockFormat &format);
    QByteArray wordsOf(const QTextBlockFormat &format, const QTextList *list);
    void appendBackground(QByteArray &out, const QTextBlockFormat &format);

    const QTextDocument &m_document;
    QList<QTextFormat> m_formats;
    RtfHeader &m_header;
    bool m_hasSections = false;
    QList<Paragraph> m_paragraphs; ///< by format; without words until it was asked for
    WordSet m_words;
};
