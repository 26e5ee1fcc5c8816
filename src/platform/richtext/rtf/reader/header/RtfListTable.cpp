#include "RtfListTable.h"

const QList<RtfListLevel> &RtfListTable::levels(int listId) const
{
    static const QList<RtfListLevel> none;
    const auto list = m_lists.constFind(listId);
    return list == m_lists.constEnd() ? none : *list;
}

void RtfListTable::begin()
{
    m_depth = 0;
    beginList();
}

void RtfListTable::beginList()
{
    m_textDepth = -1;
    m_id = 0;
    m_levels.clear();
}

void RtfListTable::close()
{
    if (m_depth == m_textDepth)
        m_textDepth = -1;
    if (--m_depth != 0)
        return;
    if (!m_levels.isEmpty())
        m_lists.insert(m_id, m_levels);
    beginList();
}

void RtfListTable::word(const RtfToken &token)
{
    if (token.word == RtfWord::ListId)
        m_id = token.parameter;
    else if (token.word == RtfWord::ListLevelDefinition)
        m_levels.append(RtfListLevel());
    else if (!m_levels.isEmpty())
        levelWord(m_levels.last(), token);
}

void RtfListTable::levelWord(RtfListLevel &level, const RtfToken &token)
{
    constexpr int longest = 32767; // twips
    switch (token.word) {
    case RtfWord::LevelKind:
    case RtfWord::LevelKindNew:
        level.kind = token.parameter;
        break;
    case RtfWord::LevelStart:
        level.start = qMax(0, token.parameter);
        break;
    case RtfWord::LevelText:
        m_textDepth = m_depth;
        m_textLength = -1;
        level.text.clear();
        break;
    case RtfWord::Font:
        level.font = qMax(0, token.parameter);
        break;
    case RtfWord::LeftIndent:
        level.left = qBound(-longest, token.parameter, longest);
        level.hasIndents = true;
        break;
    case RtfWord::FirstLineIndent:
        level.firstLine = qBound(-longest, token.parameter, longest);
        level.hasIndents = true;
        break;
    default:
        break;
    }
}

void RtfListTable::bytes(QByteArrayView bytes)
{
    for (const char byte : bytes)
        character(static_cast<uchar>(byte));
}

/// The first character counts the ones that follow.
void RtfListTable::character(char16_t c)
{
    if (m_depth != m_textDepth || m_levels.isEmpty())
        return;
    QString &text = m_levels.last().text;
    if (m_textLength < 0)
        m_textLength = c;
    else if (text.size() < m_textLength)
        text.append(QChar(c == 0xB7 ? u'\u2022' : c));
}
