#include "HelpSpans.h"

#include "HelpError.h"

#include <QRegularExpression>
#include <array>

namespace {

struct Mark
{
    const char *begin;
    QRegularExpression pattern; ///< the whole piece; captures its text, and a link's target
    HelpSpan::Kind kind;
};

const std::array<Mark, 3> marks = {
    Mark{"**", QRegularExpression(QStringLiteral(R"(\*\*([^*`\s](?:[^*`]*[^*`\s])?)\*\*)")),
         HelpSpan::Kind::Bold},
    Mark{"`", QRegularExpression(QStringLiteral(R"(`([^`]+)`)")), HelpSpan::Kind::Code},
    Mark{"[", QRegularExpression(QStringLiteral(R"(\[([^\]]+)\]\((https://[^\s()]+)\))")),
         HelpSpan::Kind::Link},
};

/// Outside of the marks above these would be marks of another kind.
void refuseOtherMarks(const QString &text, int line)
{
    static const QRegularExpression other(QStringLiteral(R"([*`\[\\]|<[a-zA-Z/!]|!\[|__)"));
    const QRegularExpressionMatch found = other.match(text);
    if (found.hasMatch())
        throw HelpError{line, QStringLiteral("\"%1\" is not allowed here").arg(found.captured())};
}

const Mark *markAt(const QString &text, qsizetype position)
{
    for (const Mark &mark : marks) {
        if (QStringView(text).mid(position).startsWith(QLatin1String(mark.begin)))
            return &mark;
    }
    return nullptr;
}

} // namespace

QList<HelpSpan> HelpSpans::read(const QString &text, int line)
{
    QList<HelpSpan> spans;
    QString plain;
    const auto endPlain = [&] {
        refuseOtherMarks(plain, line);
        if (!plain.isEmpty())
            spans.append({HelpSpan::Kind::Plain, plain});
        plain.clear();
    };
    for (qsizetype i = 0; i < text.size();) {
        const Mark *mark = markAt(text, i);
        if (!mark) {
            plain += text.at(i++);
            continue;
        }
        const QRegularExpressionMatch found = mark->pattern.match(
            text, i, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
        if (!found.hasMatch())
            throw HelpError{
                line,
                QStringLiteral("\"%1\" does not begin a piece of text that is allowed").arg(text.mid(i, 20))};
        endPlain();
        spans.append({mark->kind, found.captured(1), found.captured(2)});
        i = found.capturedEnd();
    }
    endPlain();
    return spans;
}
