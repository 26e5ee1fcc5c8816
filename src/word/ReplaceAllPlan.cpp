#include "ReplaceAllPlan.h"

#include "FindFlag.h"
#include "TextSearch.h"

#include <QStringMatcher>
#include <algorithm>

namespace {

/// The room before the first character and behind the last one separates words, too.
constexpr QChar edge = u' ';

/// The steps of one run. Texts are as they are compared, so in lower case unless the case has to match.
class Run
{
public:
    /// \a rescans: what was put in is searched, too, as the loop does it.
    Run(const QString &wanted, const QString &replacement, bool isWholeWord, bool rescans)
        : m_wanted(wanted)
        , m_matcher(wanted)
        , m_replacement(replacement)
        , m_isWholeWord(isWholeWord)
        , m_rescans(rescans)
    {}

    /// Returns false when the run came to no end in a reasonable time.
    bool goDown(QString text, int start, int end);
    bool goUp(QString text, int start, int end);

    const ReplaceAllPlan::Steps &steps() const { return m_steps; }

private:
    enum class Pass { Replaced, FoundNothing, Over };

    /// The hits from \a from to \a to.
    Pass passDown(QString &text, qsizetype from, qsizetype to);
    /// The hits before \a from, down to \a floor.
    Pass passUp(QString &text, qsizetype from, qsizetype floor);
    bool accept(qsizetype position, QChar before, QChar behind);
    void allow(qsizetype length);
    void spend(qsizetype effort) { m_patience -= effort; }

    QString m_wanted;
    QStringMatcher m_matcher;
    QString m_replacement;
    bool m_isWholeWord;
    bool m_rescans;
    qint64 m_patience = 0; ///< characters that may still be looked at
    ReplaceAllPlan::Steps m_steps;
};

/// The loop may also go on for ever, or nearly so, where the replacement merely gives rise to new hits. A
/// hundred times round the text and what may come into it is more than any text of use asks for.
void Run::allow(qsizetype length)
{
    constexpr int rounds = 100;
    constexpr int atLeast = 2'000'000;
    const qint64 hits = length / m_wanted.size() + 1;
    const qint64 written = hits * (m_replacement.size() + 1);
    m_patience = atLeast + rounds * (length + written);
}

/// Notes the hit at \a position, unless it is no whole word.
bool Run::accept(qsizetype position, QChar before, QChar behind)
{
    if (m_isWholeWord && !(TextSearch::isSeparator(before) && TextSearch::isSeparator(behind))) {
        m_steps.refused = int(position + m_wanted.size());
        return false;
    }
    m_steps.positions.append(int(position));
    constexpr int writing = 25; // a character put in counts as so many looked at, as it stays
    spend(writing * (m_replacement.size() + 1));
    return m_patience > 0 || !m_rescans;
}

Run::Pass Run::passDown(QString &text, qsizetype from, qsizetype to)
{
    spend(text.size());
    QString done;
    done.reserve(text.size());
    done.append(QStringView(text).left(from));
    qsizetype next = from;
    while (true) {
        const qsizetype found = m_matcher.indexIn(text, next);
        const qsizetype end = found + m_wanted.size();
        if (found < 0 || end > to)
            break;
        done.append(QStringView(text).mid(next, found - next));
        if (!accept(done.size(), done.isEmpty() ? edge : done.back(),
                    end < text.size() ? text.at(end) : edge))
            return Pass::Over;
        done.append(m_replacement);
        next = end;
    }
    done.append(QStringView(text).mid(next));
    const bool hasReplaced = next > from;
    text = std::move(done);
    return hasReplaced ? Pass::Replaced : Pass::FoundNothing;
}

Run::Pass Run::passUp(QString &text, qsizetype from, qsizetype floor)
{
    spend(text.size());
    QString behind = text.mid(from); // of the caret, turned round, so that it grows at its end
    std::reverse(behind.begin(), behind.end());
    const auto putBehind = [&behind](QStringView part) {
        for (qsizetype i = part.size(); i > 0; --i)
            behind.append(part.at(i - 1));
    };
    text.truncate(from);
    bool hasReplaced = false;
    while (true) {
        const qsizetype found = text.lastIndexOf(m_wanted);
        if (found < floor)
            break;
        putBehind(QStringView(text).mid(found + m_wanted.size()));
        if (!accept(found, found > 0 ? text.at(found - 1) : edge, behind.isEmpty() ? edge : behind.back()))
            return Pass::Over;
        text.truncate(found);
        if (m_rescans)
            text.append(m_replacement); // it lies before the caret
        else
            putBehind(m_replacement);
        hasReplaced = true;
    }
    std::reverse(behind.begin(), behind.end());
    text.append(behind);
    return hasReplaced ? Pass::Replaced : Pass::FoundNothing;
}

bool Run::goDown(QString text, int start, int end)
{
    allow(text.size());
    Pass pass = passDown(text, end, text.size());
    if (pass != Pass::Over)
        pass = passDown(text, 0, m_rescans ? text.size() : start);
    while (m_rescans && pass == Pass::Replaced)
        pass = passDown(text, 0, text.size());
    return pass != Pass::Over || m_steps.refused;
}

bool Run::goUp(QString text, int start, int end)
{
    allow(text.size());
    const qsizetype behind = text.size() - end;
    Pass pass = passUp(text, m_rescans ? end : start, 0);
    if (pass != Pass::Over)
        pass = passUp(text, text.size(), m_rescans ? 0 : text.size() - behind);
    while (m_rescans && pass == Pass::Replaced)
        pass = passUp(text, text.size(), 0);
    return pass != Pass::Over || m_steps.refused;
}

} // namespace

ReplaceAllPlan::Steps ReplaceAllPlan::after(const QString &text, int start, int end, const QString &wanted,
                                            const QString &replacement, int flags)
{
    if (wanted.isEmpty() || wanted.contains(u'\r'))
        return {};
    const bool matchCase = flags & FindFlag::MatchCase;
    const bool isWholeWord = flags & FindFlag::WholeWord;
    const auto compared = [matchCase](const QString &s) { return matchCase ? s : TextSearch::lowered(s); };
    const QString searched = compared(text);
    const auto stepsOf = [&](bool rescans) -> std::optional<Steps> {
        Run run(compared(wanted), compared(replacement), isWholeWord, rescans);
        const bool ends =
            flags & FindFlag::Down ? run.goDown(searched, start, end) : run.goUp(searched, start, end);
        return ends ? std::optional(run.steps()) : std::nullopt;
    };
    std::optional<Steps> steps;
    const bool isEndless = !isWholeWord && compared(replacement).contains(compared(wanted));
    if (!isEndless)
        steps = stepsOf(true);
    return steps ? *steps : stepsOf(false).value_or(Steps());
}
