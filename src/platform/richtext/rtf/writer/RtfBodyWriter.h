#pragma once

#include "CharacterWords.h"
#include "NotePlaces.h"
#include "ParagraphWords.h"
#include "RtfStream.h"

#include <QHash>
#include <QSet>
#include <QString>

class QTextBlock;
class QTextDocument;
class QTextFrame;
class QTextTable;
struct RtfHeader;

/// Writes the text between two positions of a document, and fills the header with what it names.
class RtfBodyWriter
{
public:
    enum class Sections { Left, Written };

    /// From the position \a from up to, but without, \a to. The first section is never among the written
    /// ones.
    RtfBodyWriter(const QTextDocument &document, int from, int to, RtfHeader &header,
                  Sections sections = Sections::Left);

    QByteArray write();

private:
    struct Cells
    {
        int firstRow;
        int lastRow;
        int firstColumn;
        int lastColumn;
    };

    void blocks(int start, int end, const char *lastEnd);
    void beginSection(const QTextBlock &block);
    bool beginsSection(const QTextBlock &block) const;
    const char *endOf(const QTextBlock &block);
    void childFrame(const QTextFrame &child);
    void table(const QTextTable &table);
    void cells(const QTextTable &table, const Cells &cells);
    void row(const QTextTable &table, int row, const Cells &cells);
    void block(const QTextBlock &block, int start, const char *end);
    void runs(const QTextBlock &block, int next);
    bool startsFrame(int position) const;
    bool isOnlyBeforeTable(const QTextBlock &block, int next) const;
    int wordsOfEmpty(const QTextBlock &block, int start);
    void setCharacters(int words) { m_stream.setCharacters(words, m_characters.words(words)); }
    void setParagraph(int words) { m_stream.setParagraph(words, m_paragraphs.words(words), m_depth); }
    bool isSelected(int position) const;
    bool isNumber(const CharacterWords::Run &run, QStringView text, int position) const;
    QByteArray note(int number);
    void unseen(const Unseen::Pieces &pieces, int position);
    QByteArray bytesOf(const Unseen::Piece &piece);
    QByteArray textOf(const Unseen::Run &run, const QByteArray &words) const;
    void pictures(int format, QStringView places);

    const QTextDocument &m_document;
    const QString m_text; ///< by position
    int m_from;
    int m_to;
    int m_depth = 0; ///< tables around what is being written
    RtfHeader &m_header;
    CharacterWords m_characters;
    ParagraphWords m_paragraphs;
    RtfStream m_stream;
    const QHash<const Unseen::Piece *, int> m_places;
    const NotePlaces m_notes;
    int m_note = 0;     ///< the one whose text is being written
    bool m_hasSections; ///< those behind the first are written
    bool m_sectionHasEnded = false;
    QSet<const void *> m_sections; ///< written ones
};
