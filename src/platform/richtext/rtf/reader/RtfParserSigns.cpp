#include "RtfParser.h"

#include <algorithm>
#include <array>

namespace {

struct SignWord
{
    RtfWord word;
    char16_t character;
};

constexpr auto signs = std::to_array<SignWord>({{RtfWord::Tab, u'\t'},
                                                {RtfWord::Line, QChar::LineSeparator},
                                                {RtfWord::ClearedLine, QChar::LineSeparator},
                                                {RtfWord::SoftLine, QChar::LineSeparator},
                                                {RtfWord::ColumnBreak, QChar::LineSeparator},
                                                {RtfWord::EmDash, 0x2014},
                                                {RtfWord::EnDash, 0x2013},
                                                {RtfWord::Bullet, 0x2022},
                                                {RtfWord::LeftQuote, 0x2018},
                                                {RtfWord::RightQuote, 0x2019},
                                                {RtfWord::LeftDoubleQuote, 0x201C},
                                                {RtfWord::RightDoubleQuote, 0x201D},
                                                {RtfWord::EmSpace, 0x2003},
                                                {RtfWord::EnSpace, 0x2002},
                                                {RtfWord::QuarterEmSpace, 0x2005},
                                                {RtfWord::Joiner, 0x200D},
                                                {RtfWord::NonJoiner, 0x200C},
                                                {RtfWord::BreakOpportunity, 0x200B},
                                                {RtfWord::NoBreakOpportunity, 0x2060},
                                                {RtfWord::LeftToRightMark, 0x200E},
                                                {RtfWord::RightToLeftMark, 0x200F}});

} // namespace

void RtfParser::sign(RtfWord word)
{
    if (m_states.size() < 2 || state().part)
        return;
    switch (word) {
    case RtfWord::ParagraphEnd:
        return m_body.endParagraph(state());
    case RtfWord::SectionEnd:
        return m_body.beginSection(state(), m_formats.add(m_pages.endSection()));
    case RtfWord::PageBreak:
        return m_body.breakPage(state());
    case RtfWord::SectionDefault:
        return m_pages.beginSection();
    case RtfWord::CellEnd:
        return m_body.endCell(state(), false);
    case RtfWord::NestedCellEnd:
        return m_body.endCell(state(), true);
    case RtfWord::RowEnd:
    case RtfWord::NestedRowEnd:
        return m_body.endRow(state());
    case RtfWord::NoteReference:
        return m_body.noteReference(state().characters);
    case RtfWord::NoteAtEnd:
        return m_body.setNoteAtEnd();
    case RtfWord::PageNumber:
        return pageNumber(QStringLiteral("PAGE"), state().characters);
    default:
        character(
            std::find_if(signs.begin(), signs.end(), [&](SignWord s) { return s.word == word; })->character);
    }
}
