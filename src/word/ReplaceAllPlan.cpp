#include "ReplaceAllPlan.h"

#include "FindFlag.h"
#include "ReplaceAllRound.h"
#include "TextSearch.h"

#include <QStringMatcher>
#include <algorithm>

namespace {

/// The positions before the first character and behind the last one separate words, too.
constexpr QChar textEdge = u' ';

/// The loop: what is put in is searched, too. Texts are as they are compared, so in lower case unless the
/// case has to match.
class Loop
{
public:
    Loop(const QString &wanted, const QString &replacement, bool isWholeWord)
        : m_wanted(wanted)
        , m_matcher(wanted)
        , m_replacement(replacement)
        , m_isWholeWord(isWholeWord)
    {}

    /// Returns false when the loop did not end in a reasonable time.
    bool goDown(QString text, int end);
    bool goUp(QString text, int end);

    const ReplaceAllPlan::Steps &steps() const { return m_steps; }

private:
    enum class Pass { Replaced, FoundNothing, Over };

    Pass passDown(QString &text, qsizetype from);
    Pass passUp(QString &text, qsizetype from);
    bool accept(qsizetype position, QChar before, QChar behind);
    void allow(qsizetype length);
    void spend(qsizetype effort) { m_patience -= effort; }

    QString m_wanted;
    QStringMatcher m_matcher;
    QString m_replacement;
    bool m_isWholeWord;
    qint64 m_patience = 0; ///< characters that may still be looked at
    ReplaceAllPlan::Steps m_steps;
};

/// The loop may also run for ever, or nearly so, where the replacement merely gives rise to new hits. No
/// realistic text needs more than a hundred passes over itself and what is put in.
void Loop::allow(qsizetype length)
{
    constexpr int rounds = 100;
    constexpr int atLeast = 2'000'000;
    const qint64 hits = length / m_wanted.size() + 1;
    const qint64 written = hits * (m_replacement.size() + 1);
    m_patience = atLeast + rounds * (length + written);
}

/// Notes the hit at \a position, unless it is no whole word.
bool Loop::accept(qsizetype position, QChar before, QChar behind)
{
    if (m_isWholeWord && !(TextSearch::isSeparator(before) && TextSearch::isSeparator(behind))) {
        m_steps.refused = int(position + m_wanted.size());
        return false;
    }
    m_steps.positions.append(int(position));
    constexpr int writing = 25; // a character put in counts as so many looked at, as it stays
    spend(writing * (m_replacement.size() + 1));
    return m_patience > 0;
}

/// The hits from \a from on.
Loop::Pass Loop::passDown(QString &text, qsizetype from)
{
    spend(text.size());
    QString done;
    done.reserve(text.size());
    done.append(QStringView(text).left(from));
    qsizetype next = from;
    while (true) {
        const qsizetype found = m_matcher.indexIn(text, next);
        if (found < 0)
            break;
        const qsizetype end = found + m_wanted.size();
        done.append(QStringView(text).mid(next, found - next));
        if (!accept(done.size(), done.isEmpty() ? textEdge : done.back(),
                    end < text.size() ? text.at(end) : textEdge))
            return Pass::Over;
        done.append(m_replacement);
        next = end;
    }
    done.append(QStringView(text).mid(next));
    const bool hasReplaced = next > from;
    text = std::move(done);
    return hasReplaced ? Pass::Replaced : Pass::FoundNothing;
}

/// The hits before \a from.
Loop::Pass Loop::passUp(QString &text, qsizetype from)
{
    spend(text.size());
    QString behind = text.mid(from); // of the caret, turned round, so that it grows at its end
    std::reverse(behind.begin(), behind.end());
    text.truncate(from);
    bool hasReplaced = false;
    while (true) {
        const qsizetype found = text.lastIndexOf(m_wanted);
        if (found < 0)
            break;
        for (qsizetype i = text.size(); i > found + m_wanted.size(); --i)
            behind.append(text.at(i - 1));
        if (!accept(found, found > 0 ? text.at(found - 1) : textEdge,
                    behind.isEmpty() ? textEdge : behind.back()))
            return Pass::Over;
        text.truncate(found);
        text.append(m_replacement); // it is before the caret
        hasReplaced = true;
    }
    std::reverse(behind.begin(), behind.end());
    text.append(behind);
    return hasReplaced ? Pass::Replaced : Pass::FoundNothing;
}

bool Loop::goDown(QString text, int end)
{
    allow(text.size());
    Pass pass = passDown(text, end);
    if (pass != Pass::Over)
        pass = passDown(text, 0);
    while (pass == Pass::Replaced)
        pass = passDown(text, 0);
    return pass != Pass::Over || m_steps.refused;
}

bool Loop::goUp(QString text, int end)
{
    allow(text.size());
    Pass pass = passUp(text, end);
    if (pass != Pass::Over)
        pass = passUp(text, text.size());
    while (pass == Pass::Replaced)
        pass = passUp(text, text.size());
    return pass != Pass::Over || m_steps.refused;
}

std::optional<ReplaceAllPlan::Steps> stepsOfLoop(const QString &text, int end, const QString &wanted,
                                                 const QString &replacement, int flags)
{
    Loop loop(wanted, replacement, flags & FindFlag::WholeWord);
    const bool ends = flags & FindFlag::Down ? loop.goDown(text, end) : loop.goUp(text, end);
    return ends ? std::optional(loop.steps()) : std::nullopt;
}

ReplaceAllPlan::Steps stepsOfRound(const QString &text, int start, int end, const QString &wanted,
                                   const QString &replacement, int flags)
{
    ReplaceAllRound round(text, wanted, replacement, flags & FindFlag::WholeWord);
    return flags & FindFlag::Down ? round.goDown(start, end) : round.goUp(start, end);
}

} // namespace

ReplaceAllPlan::Steps ReplaceAllPlan::after(const QString &text, int start, int end, const QString &wanted,
                                            const QString &replacement, int flags)
{
    if (wanted.isEmpty() || wanted.contains(u'\r'))
        return {};
    const auto compared = [flags](const QString &s) {
        return flags & FindFlag::MatchCase ? s : TextSearch::lowered(s);
    };
    const QString searched = compared(text);
    const QString hit = compared(wanted);
    const QString putIn = compared(replacement);
    const bool isEndless = !(flags & FindFlag::WholeWord) && putIn.contains(hit);
    std::optional<Steps> steps;
    if (!isEndless && !ReplaceAllRound::isAllThereIs(hit, putIn))
        steps = stepsOfLoop(searched, end, hit, putIn, flags);
    return steps ? *steps : stepsOfRound(searched, start, end, hit, putIn, flags);
}
