#include "RtfLists.h"

#include "ListMark.h"
#include "RichTextProperties.h"

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
    return item((*open)[size_t(paragraph.level)], *mark, paragraph.level, paragraph.list);
}

/// Adds one item to \a list, or to a new list in its place; \a number is its \ls.
int RtfLists::item(int &list, const RtfListLevel &mark, int level, int number)
{
    const int most = mark.kind == RtfListLevel::bulleted ? mostBullets : mostNumbers;
    if (list < 0) {
        list = add(mark, level, number);
    } else if (m_lists.at(list).count == most) {
        RtfListLevel next = mark;
        next.start = m_lists.at(list).start + most;
        list = add(next, level, number);
    }
    ++m_lists[list].count;
    return list;
}

int RtfLists::add(const RtfListLevel &mark, int level, int number)
{
    const QString family = mark.font < 0 ? QString() : m_fonts.font(mark.font).family;
    QTextListFormat format = mark.format(level, family);
    if (m_overrides.isOutline(number)) {
        format.setProperty(RichTextProperty::ListNumber, number);
        if (mark.hasOtherNumbers(level))
            mark.setNumerals(format, level, numerals(number, level));
    }
    m_lists.append({format, mark.start, 0});
    return int(m_lists.size()) - 1;
}

/// What the levels above \a level say; one that has no items yet says its first number.
QStringList RtfLists::numerals(int number, int level)
{
    QStringList numerals;
    for (int i = 0; i < level; ++i) {
        const RtfListLevel *mark = m_overrides.level(number, i);
        const int list = m_open.value(number).at(size_t(i));
        const int value = list < 0 ? mark->start : m_lists.at(list).start + m_lists.at(list).count - 1;
        numerals.append(ListMark::numeral(mark->style(), value));
    }
    return numerals;
}
