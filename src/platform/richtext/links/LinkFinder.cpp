#include "LinkFinder.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

using LinkFinder::Link;

const QRegularExpression &address()
{
    // A name begins where no other letter, digit or sign of a name is before it.
    static const QRegularExpression expression(
        QStringLiteral(R"((?<![\w@.+-])(?:(?:(?:https?|ftp|file)://|mailto:|www\.(?=\w))[^\s<>"\x{FFFC}]+)"
                       R"(|\w[\w.+-]{0,63}@\w[\w-]*(?:\.\w[\w-]*)+))"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return expression;
}

/// True when \a text ends in a closing bracket that nothing in it opens.
bool endsUnopened(QStringView text)
{
    static const QString closing = QStringLiteral(")]}");
    static const QString opening = QStringLiteral("([{");
    const qsizetype kind = closing.indexOf(text.back());
    return kind >= 0 && text.count(closing.at(kind)) > text.count(opening.at(kind));
}

/// An address ends before the punctuation of the sentence around it.
qsizetype lengthWithoutPunctuation(QStringView text)
{
    static const QString punctuation = QStringLiteral(".,;:!?'*\u2019\u201D\u00BB\u2026");
    while (!text.isEmpty() && (punctuation.contains(text.back()) || endsUnopened(text)))
        text.chop(1);
    return text.size();
}

/// True when more than the sign of an address is left: "http://" alone leads nowhere.
bool leadsSomewhere(QStringView text)
{
    return text.back().isLetterOrNumber() || text.back() == u'/' ? !text.endsWith(u"://") : text.size() > 1;
}

void appendAddresses(QList<Link> &links, QStringView text, int offset)
{
    // Far most paragraphs hold none, and these three are quick to look for.
    if (!text.contains(u':') && !text.contains(u'@') && !text.contains(u"www.", Qt::CaseInsensitive))
        return;
    auto matches = address().globalMatch(text.toString());
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QStringView found = match.capturedView();
        const QStringView trimmed = found.left(lengthWithoutPunctuation(found));
        const int first = offset + int(match.capturedStart());
        if (!trimmed.isEmpty() && leadsSomewhere(trimmed))
            links.append({first, first + int(trimmed.size()), trimmed.toString()});
    }
}

/// The hyperlinks of \a block; neighbouring runs that lead to one address are one link.
void appendHyperlinks(QList<Link> &links, const QTextBlock &block, int first, int end)
{
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment run = it.fragment();
        if (run.position() > end)
            return;
        const QString target = run.charFormat().anchorHref();
        const int runEnd = run.position() + run.length();
        if (target.isEmpty())
            continue;
        if (!links.isEmpty() && links.constLast().end == run.position() && links.constLast().target == target)
            links.last().end = runEnd;
        else
            links.append({run.position(), runEnd, target});
    }
    links.removeIf([&](const Link &link) { return link.end < first; });
}

bool overlaps(const QList<Link> &links, const Link &other)
{
    return std::any_of(links.cbegin(), links.cend(),
                       [&](const Link &link) { return link.first < other.end && other.first < link.end; });
}

/// What \a first to \a end touches of \a block; the text around it is looked at as far as an address may
/// reach.
QList<Link> inParagraph(const QTextBlock &block, int first, int end)
{
    constexpr int longestAddress = 2000;
    const int textFirst = qMax(block.position(), first - longestAddress);
    const int textEnd = qMin(block.position() + block.length() - 1, end + longestAddress);
    QTextCursor text(block);
    text.setPosition(textFirst);
    text.setPosition(textEnd, QTextCursor::KeepAnchor);

    QList<Link> links;
    appendHyperlinks(links, block, first, end);
    QList<Link> addresses;
    appendAddresses(addresses, text.selectedText(), textFirst);
    for (const Link &found : std::as_const(addresses)) {
        if (found.first <= end && found.end >= first && !overlaps(links, found))
            links.append(found);
    }
    return links;
}

} // namespace

QList<Link> LinkFinder::between(const QTextDocument &document, int first, int end)
{
    QList<Link> links;
    QTextBlock block = document.findBlock(first);
    for (; block.isValid() && block.position() <= end; block = block.next())
        links.append(inParagraph(block, first, end));
    return links;
}

std::optional<Link> LinkFinder::at(const QTextDocument &document, int position)
{
    for (const Link &link : between(document, position, position)) {
        if (link.first <= position && position < link.end)
            return link;
    }
    return std::nullopt;
}
