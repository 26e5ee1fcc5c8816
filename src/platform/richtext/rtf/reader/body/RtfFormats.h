#pragma once

#include "PageSections.h"
#include "RtfCharacterState.h"
#include "RtfParagraphState.h"
#include "Unseen.h"

#include <QList>
#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextImageFormat>
#include <unordered_map>

class RtfColorTable;
class RtfFontTable;
class RtfStyleSheet;
struct RtfParagraphRows;

/// The formats of a document. Each state of characters or paragraphs becomes one format, known by a number.
class RtfFormats
{
public:
    RtfFormats(const RtfFontTable &fonts, const RtfColorTable &colors, const RtfParagraphRows &rows,
               const RtfStyleSheet &styles);

    int number(const RtfCharacterState &state);
    int number(const RtfParagraphState &state, bool isInList);
    int addPicture(const QTextImageFormat &format, const RtfCharacterState &state);

    /// The number that RtfParagraphState::section has for the beginning of \a section.
    int add(PageSections::Section section);
    /// The format numbered \a number, as that of the mark of the note \a note.
    int addMark(int number, int note);
    /// The format numbered \a number, with \a pieces in place of those that it has.
    int addUnseen(int number, const Unseen::Pieces &pieces);

    const QTextCharFormat &characters(int number) const { return m_characters.at(number); }
    const QTextBlockFormat &paragraph(int number) const { return m_paragraphs.at(number); }

    /// The number that RtfCharacterState::field has for text that leads to \a address.
    int linkTo(const QString &address);
    /// The same for text that is the result of another field.
    int fieldOf(const QString &instruction);

private:
    struct Field
    {
        QString address;
        QString instruction;
    };
    struct HashBytes
    {
        template<typename State>
        size_t operator()(const State &state) const
        {
            return qHashBits(&state, sizeof state);
        }
    };

    QTextCharFormat make(const RtfCharacterState &state) const;
    QTextBlockFormat make(const RtfParagraphState &state, bool isInList) const;
    void setColors(QTextCharFormat &format, const RtfCharacterState &state) const;
    void setField(QTextCharFormat &format, const Field &field) const;
    void setPosition(QTextCharFormat &format, const RtfCharacterState &state) const;

    const RtfFontTable &m_fonts;
    const RtfColorTable &m_colors;
    const RtfParagraphRows &m_rows;
    const RtfStyleSheet &m_styles;
    std::unordered_map<RtfCharacterState, int, HashBytes> m_characterNumbers;
    std::unordered_map<RtfParagraphState, int, HashBytes> m_paragraphNumbers;
    QList<QTextCharFormat> m_characters;
    QList<QTextBlockFormat> m_paragraphs;
    QList<Field> m_fields;
    QList<PageSections::Section> m_sections;
};
