#include "RtfListOverrides.h"

RtfListOverrides::RtfListOverrides(const RtfListTable &lists)
    : m_lists(lists)
{}

const RtfListLevel *RtfListOverrides::level(int number, int level)
{
    const auto found = m_overrides.find(number);
    if (found == m_overrides.end())
        return nullptr;
    if (found->levels.isEmpty())
        fill(*found);
    return level < found->levels.size() ? &found->levels.at(level) : nullptr;
}

bool RtfListOverrides::isOutline(int number)
{
    for (int i = 0; const RtfListLevel *mark = level(number, i); ++i) {
        if (mark->hasOtherNumbers(i))
            return true;
    }
    return false;
}

void RtfListOverrides::fill(Override &override) const
{
    override.levels = m_lists.levels(override.listId);
    for (int i = 0; i < override.levels.size(); ++i)
        override.levels[i].start = override.starts.value(i, override.levels.at(i).start);
}

void RtfListOverrides::begin()
{
    m_depth = 0;
    m_number = 0;
    m_level = -1;
    m_override = Override();
}

void RtfListOverrides::close()
{
    if (--m_depth != 0)
        return;
    if (m_number > 0)
        m_overrides.insert(m_number, m_override);
    begin();
}

void RtfListOverrides::word(const RtfToken &token)
{
    switch (token.word) {
    case RtfWord::ListId:
        m_override.listId = token.parameter;
        break;
    case RtfWord::ListNumber:
        m_number = token.parameter;
        break;
    case RtfWord::OverrideLevel:
        ++m_level;
        break;
    case RtfWord::LevelStart:
        if (m_level >= 0 && m_level < RtfListLevel::count)
            m_override.starts.insert(m_level, qMax(0, token.parameter));
        break;
    default:
        break;
    }
}
