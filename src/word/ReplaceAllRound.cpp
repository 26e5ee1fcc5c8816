#include "ReplaceAllRound.h"

#include "TextSearch.h"

ReplaceAllRound::ReplaceAllRound(const QString &text, const QString &wanted, const QString &replacement,
                                 bool isWholeWord)
    : m_text(text)
    , m_wanted(wanted)
    , m_replacement(replacement)
    , m_isWholeWord(isWholeWord)
    , m_matcher(wanted)
{}

bool ReplaceAllRound::isAllThereIs(const QString &wanted, const QString &replacement)
{
    if (wanted.contains(replacement) || replacement.contains(wanted))
        return false;
    for (qsizetype shared = qMin(wanted.size(), replacement.size()) - 1; shared > 0; --shared) {
        if (wanted.startsWith(QStringView(replacement).right(shared)) ||
            wanted.endsWith(QStringView(replacement).left(shared)))
            return false;
    }
    return true;
}

ReplaceAllPlan::Steps ReplaceAllRound::goDown(int start, int end)
{
    if (passDown(end, m_text.size()))
        passDown(0, start);
    return m_steps;
}

ReplaceAllPlan::Steps ReplaceAllRound::goUp(int start, int end)
{
    if (passUp(start, 0))
        passUp(m_text.size(), end);
    return m_steps;
}

bool ReplaceAllRound::passDown(qsizetype from, qsizetype to)
{
    const qsizetype growth = m_replacement.size() - m_wanted.size();
    QChar before = at(from - 1);
    qsizetype next = from;
    for (qsizetype hits = 0;; ++hits) {
        const qsizetype found = m_matcher.indexIn(m_text, next);
        if (found < 0 || found + m_wanted.size() > to)
            return true;
        if (found > next)
            before = at(found - 1);
        next = found + m_wanted.size();
        if (!accept(found, hits * growth, before, at(next)))
            return false;
        if (!m_replacement.isEmpty())
            before = m_replacement.back();
    }
}

/// The hits before \a from, down to \a floor. What was replaced before is ahead of them, and has moved
/// them.
bool ReplaceAllRound::passUp(qsizetype from, qsizetype floor)
{
    const qsizetype growth = m_steps.positions.size() * (m_replacement.size() - m_wanted.size());
    QChar behind = at(from);
    qsizetype end = from;
    while (end >= m_wanted.size()) {
        const qsizetype found = m_text.lastIndexOf(m_wanted, end - m_wanted.size());
        if (found < floor)
            break;
        if (found + m_wanted.size() < end)
            behind = at(found + m_wanted.size());
        if (!accept(found, growth, at(found - 1), behind))
            return false;
        if (!m_replacement.isEmpty())
            behind = m_replacement.front();
        end = found;
    }
    return true;
}

/// Notes a \a hit of the text, unless it is no whole word; \a growth is by how much the text before it has
/// grown.
bool ReplaceAllRound::accept(qsizetype hit, qsizetype growth, QChar before, QChar behind)
{
    if (m_isWholeWord && !(TextSearch::isSeparator(before) && TextSearch::isSeparator(behind))) {
        m_steps.refused = int(hit + growth + m_wanted.size());
        return false;
    }
    m_steps.positions.append(int(hit + growth));
    return true;
}

/// The positions before the first character and behind the last one separate words, too.
QChar ReplaceAllRound::at(qsizetype position) const
{
    return position >= 0 && position < m_text.size() ? m_text.at(position) : u' ';
}
