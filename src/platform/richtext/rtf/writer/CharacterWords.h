#pragma once

#include "RtfSymbolFont.h"
#include "Unseen.h"
#include "WordSet.h"

#include <QList>
#include <QTextFormat>

struct RtfHeader;

/// The control words of a document's character formats, made once for each format.
class CharacterWords
{
public:
    struct Run
    {
        int words = -1; ///< equal for formats that are written alike
        int field = 0;  ///< equal for text of the same field, such as a link; 0 for none
        bool isPicture = false;
        int note = 0;          ///< whose mark the text is, 0 for none
        int noteCount = 0;     ///< what the mark says where notes are counted
        Unseen::Pieces unseen; ///< what is not shown before the text
    };

    /// \a formats are the document's own, by index.
    CharacterWords(const QList<QTextFormat> &formats, RtfHeader &header);

    /// Text in a font of signs whose characters a reader would take for signs is written without that font.
    /// Text of other scripts has its look a second time, in the words that other readers look for it in.
    Run run(int format, QStringView text = {});

    /// Run::words for the empty start of a cell, whose format has the cell's colour besides the text's
    /// format.
    int wordsAtCellStart(int format);

    /// What differs from plain text, for Run::words.
    const QByteArray &words(int number) const { return m_words.at(number); }

    /// What the field asks for, as it is written, for Run::field.
    const QByteArray &instruction(int field) const { return m_fields.at(field); }

    /// What is not shown before the end of a paragraph whose characters have \a format.
    Unseen::Pieces unseen(int format) const { return Unseen::of(m_formats.at(format)); }
    /// Whether any format has something.
    bool hasUnseen() const { return m_hasUnseen; }

    QTextCharFormat format(int format) const { return m_formats.at(format).toCharFormat(); }

private:
    /// What else than its format decides how text is written; bits of one number.
    enum Need : quint8 { NoSigns = 1, ComplexLook = 2, EastAsianLook = 4, NeedCount = 8 };

    int needsOf(int format, QStringView text) const;
    Run make(const QTextCharFormat &format, int needs);
    QByteArray wordsOf(const QTextCharFormat &format, int needs = 0);
    void appendAssociated(QByteArray &out, const QTextCharFormat &format, int needs);
    void appendFont(QByteArray &out, const QTextCharFormat &format);
    void appendLines(QByteArray &out, const QTextCharFormat &format);
    void appendPosition(QByteArray &out, const QTextCharFormat &format) const;
    void appendColours(QByteArray &out, const QTextCharFormat &format);

    QList<QTextFormat> m_formats;
    RtfHeader &m_header;
    QList<Run> m_runs;                  ///< by format and needs; without words until it was asked for
    QList<RtfSymbolFont::Kind> m_signs; ///< by format
    bool m_hasUnseen = false;
    WordSet m_words;
    WordSet m_fields;
};
