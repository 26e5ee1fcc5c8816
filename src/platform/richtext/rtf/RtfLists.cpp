#include "RtfLists.h"

#include <algorithm>

RtfLists::RtfLists(RtfListOverrides &overrides, const RtfOldNumbering &oldNumbering)
    : m_overrides(overrides)
    , m_oldNumbering(oldNumbering)
{}

const RtfListLevel *RtfLists::mark(const RtfParagraphState &paragraph)
{
    const RtfListLevel *mark = nullptr;
    if (paragraph.list > 0)
        mark = m_overrides.level(paragraph.list, paragraph.level);
    else if (paragraph.oldNumbering > 0)
        mark = &m_oldNumbering.mark(paragraph.oldNumbering);
    return mark && mark->kind != RtfListLevel::unmarked ? mark : nullptr;
}

int RtfLists::next(const RtfParagraphState &paragraph)
{
    const RtfListLevel *mark = this->mark(paragraph);
    const bool isOld = mark && paragraph.list == 0;
    const bool continuesOld = isOld && paragraph.oldNumbering == m_lastOldNumbering;
    m_lastOldNumbering = isOld ? paragraph.oldNumbering : 0;
    if (!mark)
        return -1;
    if (isOld) {
        m_lastOldList = continuesOld ? m_lastOldList : add(*mark, 0);
        return m_lastOldList;
    }
    auto open = m_open.find(paragraph.list);
    if (open == m_open.end()) {
        open = m_open.insert(paragraph.list, Levels());
        open->fill(-1);
    }
    int &list = (*open)[size_t(paragraph.level)];
    if (list < 0)
        list = add(*mark, paragraph.level);
    std::fill(open->begin() + paragraph.level + 1, open->end(), -1);
    return list;
}

int RtfLists::add(const RtfListLevel &mark, int level)
{
    m_formats.append(mark.format(level));
    return int(m_formats.size()) - 1;
}
