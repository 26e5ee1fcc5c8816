#pragma once

#include "RtfFontTable.h"
#include "RtfListOverrides.h"
#include "RtfOldNumbering.h"
#include "RtfParagraphState.h"

#include <QHash>
#include <QList>
#include <array>

/// Which paragraphs are items of one list: the numbers of a list go on until an item of a higher level comes.
class RtfLists
{
public:
    RtfLists(RtfListOverrides &overrides, RtfOldNumbering &oldNumbering, const RtfFontTable &fonts);

    /// How the paragraph is marked; null when it is no item, or of a list that the file does not describe.
    const RtfListLevel *mark(const RtfParagraphState &paragraph);

    /// For RtfParagraphState::oldNumbering: a bullet, for items of which nobody says how they are marked.
    int bullet() { return m_oldNumbering.bullet(); }

    /// The list of the next paragraph of the text, -1 for none. Asked once for each, in order.
    int next(const RtfParagraphState &paragraph);

    const QTextListFormat &format(int list) const { return m_lists.at(list).format; }

private:
    using Levels = std::array<int, RtfListLevel::count>;

    struct List
    {
        QTextListFormat format;
        int start = 1;
        int count = 0; ///< of items so far
    };

    int item(int &list, const RtfListLevel &mark, int level, int number = 0);
    int add(const RtfListLevel &mark, int level, int number);
    QStringList numerals(int number, int level);

    RtfListOverrides &m_overrides;
    RtfOldNumbering &m_oldNumbering;
    const RtfFontTable &m_fonts;
    QList<List> m_lists;
    QHash<int, Levels> m_open; ///< by \ls
    int m_lastOldNumbering = 0;
    int m_lastOldList = -1;
};
