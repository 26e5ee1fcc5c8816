#include "RtfLists.h"

#include <algorithm>

namespace {

// Qt looks at all items of a list with each new one, so a list that is very long is kept in pieces. Bullets
// are alike; numbers go on in the next piece, which says where it starts.
constexpr int mostBullets = 128;
constexpr int mostNumbers = 1000;

} // namespace

RtfLists::RtfLists(RtfListOverrides &overrides, RtfOldNumbering &oldNumbering, const RtfFontTable &fonts)
    : m_overrides(overrides)
    , m_oldNumbering(oldNumbering)
    , m_fonts(fonts)
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
        if (!continuesOld)
            m_lastOldList = -1;
        return item(m_lastOldList, *mark, 0);
    }
    auto open = m_open.find(paragraph.list);
    if (open == m_open.end()) {
        open = m_open.insert(paragraph.list, Levels());
        open->fill(-1);
    }
    std::fill(open->begin() + paragraph.level + 1, open->end(), -1);
    return item((*open)[size_t(paragraph.level)], *mark, paragraph.level);
}

/// Adds one item to \a list, or to a new list in its place.
int RtfLists::item(int &list, const RtfListLevel &mark, int level)
{
    const int most = mark.kind == RtfListLevel::bulleted ? mostBullets : mostNumbers;
    if (list < 0) {
        list = add(mark, level);
    } else if (m_lists.at(list).count == most) {
        RtfListLevel next = mark;
        next.start = m_lists.at(list).start + most;
        list = add(next, level);
    }
    ++m_lists[list].count;
    return list;
}

int RtfLists::add(const RtfListLevel &mark, int level)
{
    const QString family = mark.font < 0 ? QString() : m_fonts.font(mark.font).family;
    m_lists.append({mark.format(level, family), mark.start, 0});
    return int(m_lists.size()) - 1;
}
