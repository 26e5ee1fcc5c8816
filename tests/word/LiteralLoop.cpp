#include "LiteralLoop.h"

#include "FindFlag.h"

namespace {

QString lower(const QString &text)
{
    QString result;
    for (const QChar c : text)
        result += c.toLower();
    return result;
}

} // namespace

bool LiteralLoop::matches(int position, const QString &wanted, bool matchCase) const
{
    const QString part = text.mid(position - 1, wanted.size());
    return matchCase ? part == wanted : lower(part) == lower(wanted);
}

int LiteralLoop::firstFrom(int position, const QString &wanted, bool matchCase) const
{
    for (int p = position; p + wanted.size() - 1 <= text.size(); ++p) {
        if (matches(p, wanted, matchCase))
            return p;
    }
    return 0;
}

int LiteralLoop::lastUpTo(int end, const QString &wanted, bool matchCase) const
{
    for (auto p = int(qMin(qsizetype(end), text.size()) - wanted.size() + 1); p >= 1; --p) {
        if (matches(p, wanted, matchCase))
            return p;
    }
    return 0;
}

bool LiteralLoop::isSeparator(int position) const
{
    return QStringLiteral(" ,.\r\n:;").contains(text.at(position - 1));
}

LiteralLoop::Found LiteralLoop::search(const QString &wanted, int flags) const
{
    if (wanted.isEmpty())
        return {};
    const bool matchCase = flags & FindFlag::MatchCase;
    int p = 0;
    if (flags & FindFlag::Down) {
        const int start = selEnd + 1;
        p = firstFrom(start, wanted, matchCase);
        if (p == 0 && start > 1)
            p = firstFrom(1, wanted, matchCase);
    } else {
        p = lastUpTo(selStart, wanted, matchCase);
        if (p == 0 && selStart < text.size())
            p = lastUpTo(int(text.size()), wanted, matchCase);
    }
    if (p == 0)
        return {};
    const auto e = int(p + wanted.size() - 1);
    if (flags & FindFlag::WholeWord) {
        if (p > 1 && !isSeparator(p - 1))
            p = 0;
        if (e < text.size() && !isSeparator(e + 1))
            p = 0;
    }
    return {true, p, e};
}

void LiteralLoop::replaceSelection(const QString &replacement)
{
    text.replace(selStart, selEnd - selStart, replacement);
    selStart = selEnd = int(selStart + replacement.size());
}

bool LiteralLoop::replaceAll(const QString &wanted, const QString &replacement, int flags, int most)
{
    for (int step = 0; step < most && selStart < selEnd; ++step) {
        replaceSelection(replacement);
        if (text.isEmpty())
            return true;
        const Found found = search(wanted, flags);
        if (!found.found)
            return true;
        selEnd = found.end;
        selStart = found.position > 0 ? found.position - 1 : selEnd;
    }
    return selStart == selEnd;
}

/// Replaces the hit at \a position; returns false, with the caret behind it, when it is refused.
bool LiteralLoop::take(int position, const QString &wanted, const QString &replacement, int flags)
{
    selStart = position - 1;
    selEnd = int(selStart + wanted.size());
    const bool refused =
        (flags & FindFlag::WholeWord) &&
        ((position > 1 && !isSeparator(position - 1)) || (selEnd < text.size() && !isSeparator(selEnd + 1)));
    if (refused)
        selStart = selEnd;
    else
        replaceSelection(replacement);
    return !refused;
}

void LiteralLoop::replaceOriginals(const QString &wanted, const QString &replacement, int flags)
{
    const bool matchCase = flags & FindFlag::MatchCase;
    const auto grown = int(replacement.size() - wanted.size());
    const auto behind = int(text.size()) - selEnd; // characters that were behind the selection
    int before = selStart;                         // and before it
    replaceSelection(replacement);
    if (flags & FindFlag::Down) {
        while (const int p = firstFrom(selEnd + 1, wanted, matchCase)) {
            if (!take(p, wanted, replacement, flags))
                return;
        }
        int from = 1;
        int p = 0;
        while ((p = firstFrom(from, wanted, matchCase)) && p + wanted.size() - 1 <= before) {
            if (!take(p, wanted, replacement, flags))
                return;
            before += grown;
            from = selEnd + 1;
        }
        return;
    }
    int upTo = before;
    while (const int p = lastUpTo(upTo, wanted, matchCase)) {
        if (!take(p, wanted, replacement, flags))
            return;
        upTo = p - 1;
    }
    const auto floor = int(text.size()) - behind;
    upTo = int(text.size());
    int p = 0;
    while ((p = lastUpTo(upTo, wanted, matchCase)) > floor) {
        if (!take(p, wanted, replacement, flags))
            return;
        upTo = p - 1;
    }
}
