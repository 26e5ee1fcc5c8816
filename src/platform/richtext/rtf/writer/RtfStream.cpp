#include "RtfStream.h"

#include "RtfWords.h"

void RtfStream::setCharacters(int number, const QByteArray &words)
{
    if (number == m_characters)
        return;
    endRun();
    m_characters = number;
    if (number == 0)
        return;
    m_out.append('{');
    this->words(words);
}

void RtfStream::setParagraph(int number, const QByteArray &words, int depth)
{
    const bool isInInnerTable =
        depth > 1; // some readers lose a paragraph's words at the end of an inner cell
    if (number == m_paragraph && depth == m_depth && !isInInnerTable)
        return;
    m_paragraph = number;
    m_depth = depth;
    m_out.append("\\pard");
    if (depth > 0)
        m_out.append("\\intbl");
    if (depth > 1)
        RtfWords::append(m_out, "itap", depth);
    this->words(words);
}

void RtfStream::text(QStringView text)
{
    if (m_wordIsOpen && !text.isEmpty())
        m_out.append(' ');
    RtfWords::appendText(m_out, text);
    m_wordIsOpen = m_wordIsOpen && text.isEmpty();
}

void RtfStream::group(const QByteArray &group)
{
    m_out.append(group);
    m_wordIsOpen = m_wordIsOpen && group.isEmpty();
}

void RtfStream::line(const QByteArray &words)
{
    m_out.append(words);
    endRun();
    m_out.append('\n');
    m_wordIsOpen = false;
}

void RtfStream::startField(const QByteArray &instruction)
{
    endRun();
    m_out.append("{\\field{\\*\\fldinst ").append(instruction).append("}{\\fldrslt");
    m_wordIsOpen = true;
}

void RtfStream::endField()
{
    endRun();
    m_out.append("}}");
    m_wordIsOpen = false;
}

void RtfStream::words(const QByteArray &words)
{
    m_out.append(words);
    m_wordIsOpen = true;
}

void RtfStream::endRun()
{
    if (m_characters == 0)
        return;
    m_characters = 0;
    m_out.append('}');
    m_wordIsOpen = false;
}
