#include "HelpSourceReader.h"

#include "HelpError.h"
#include "HelpSpans.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

using Kind = HelpBlock::Kind;

/// What \a pattern captures when it matches the whole of \a line.
std::optional<QStringList> captures(const QString &line, const char *pattern)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(QLatin1String(pattern)));
    const QRegularExpressionMatch match = whole.match(line);
    return match.hasMatch() ? std::optional(match.capturedTexts()) : std::nullopt;
}

bool isBold(const HelpSpan &span)
{
    return span.kind == HelpSpan::Kind::Bold;
}

} // namespace

HelpSource HelpSourceReader::read(const QString &text)
{
    for (const QString &line : text.split(u'\n')) {
        ++m_line;
        readLine(line);
    }
    end();
    return m_source;
}

void HelpSourceReader::readLine(const QString &line)
{
    if (std::ranges::any_of(line, [](QChar c) { return c < u' '; }))
        throw HelpError{m_line, QStringLiteral("a tab or another control character")};
    if (m_line > 1 && line.trimmed().isEmpty()) {
        m_isOpen = false;
        return;
    }
    const bool isRead = readTitle(line) || readWindows(line) || readHeading(line) || readPicture(line) ||
                        readStep(line) || readBullet(line);
    if (!isRead)
        readText(line);
}

bool HelpSourceReader::readTitle(const QString &line)
{
    const auto title = captures(line, "# (\\S.*)");
    if (title.has_value() != (m_line == 1))
        throw HelpError{m_line, QStringLiteral("the first line, and no other, is a title")};
    if (title)
        begin(Kind::Title, title->at(1));
    return title.has_value();
}

bool HelpSourceReader::readWindows(const QString &line)
{
    constexpr int itsLine = 2;
    const auto names = captures(line, "<!-- windows:((?: \\w+)+) -->");
    if (!names || m_line != itsLine)
        return false;
    m_source.windows = names->at(1).split(u' ', Qt::SkipEmptyParts);
    m_isOpen = false;
    return true;
}

bool HelpSourceReader::readHeading(const QString &line)
{
    const auto heading = captures(line, "## (\\S.*)");
    if (heading)
        begin(Kind::Heading, heading->at(1));
    return heading.has_value();
}

bool HelpSourceReader::readPicture(const QString &line)
{
    const auto picture = captures(line, "!\\[([^\\]]+)\\]\\((pictures/[A-Za-z0-9-]+\\.png)\\)");
    if (!picture)
        return false;
    HelpBlock &block = begin(Kind::Picture, {});
    block.description = picture->at(1);
    block.picture = picture->at(2);
    return true;
}

bool HelpSourceReader::readStep(const QString &line)
{
    const auto step = captures(line, "(\\d+)\\. (\\S.*)");
    if (!step)
        return false;
    const int number = step->at(1).toInt();
    const bool startsList = number == 1;
    if (!startsList && number != m_step + 1)
        throw HelpError{m_line, QStringLiteral("step %1 is not behind step %2").arg(number).arg(number - 1)};
    m_step = number;
    begin(Kind::Step, step->at(2)).startsList = startsList;
    return true;
}

bool HelpSourceReader::readBullet(const QString &line)
{
    const auto bullet = captures(line, "- (\\S.*)");
    if (!bullet)
        return false;
    const bool startsList = !isAfter(Kind::Bullet);
    begin(Kind::Bullet, bullet->at(1)).startsList = startsList;
    return true;
}

/// A paragraph, or more text of the block before. Only the lines of a list are indented.
void HelpSourceReader::readText(const QString &line)
{
    const bool isInList = m_isOpen && (isAfter(Kind::Step) || isAfter(Kind::Bullet));
    const QString text = isInList ? line.trimmed() : line;
    if (captures(text, "(#|\\s|>|\\||~~~|```|<|!\\[|[-+*] |\\d+[.)]|---|===|\\*\\*\\*).*"))
        throw HelpError{m_line,
                        QStringLiteral("\"%1\" does not begin a line that is allowed").arg(text.left(20))};
    if (m_isOpen)
        m_text += u' ' + text.trimmed();
    else
        begin(Kind::Paragraph, text);
}

HelpBlock &HelpSourceReader::begin(Kind kind, const QString &text)
{
    end();
    m_text = text.trimmed();
    m_isOpen = kind == Kind::Paragraph || kind == Kind::Step || kind == Kind::Bullet;
    if (kind == Kind::Heading)
        m_step = 0;
    m_source.blocks.append({kind, m_line});
    return m_source.blocks.last();
}

/// The latest block has all its lines.
void HelpSourceReader::end()
{
    if (m_source.blocks.isEmpty())
        return;
    HelpBlock &block = m_source.blocks.last();
    block.spans = HelpSpans::read(m_text, block.line);
    if (m_source.windows.isEmpty() && std::ranges::any_of(block.spans, isBold))
        throw HelpError{block.line, QStringLiteral("bold text, and no window is named in line 2")};
}

bool HelpSourceReader::isAfter(Kind kind) const
{
    return !m_source.blocks.isEmpty() && m_source.blocks.constLast().kind == kind;
}
