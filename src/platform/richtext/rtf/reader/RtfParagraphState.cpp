#include "RtfParagraphState.h"

#include "RtfLexer.h"
#include "RtfParagraphRows.h"

#include <QStringList>

namespace {

// What no page holds is taken for the largest that the format's own numbers of 16 bits reach.
constexpr int largestLength = 32767;
constexpr int deepestLevel = 8;

/// That of a heading from 1; 0 for level 9, which is text.
int levelOf(const RtfToken &outlineLevel)
{
    const bool isHeading = outlineLevel.parameter >= 0 && outlineLevel.parameter <= deepestLevel;
    return isHeading ? outlineLevel.parameter + 1 : 0;
}

} // namespace

int RtfParagraphState::depth() const
{
    return tableDepth >= 0 ? qMin(qMax(tableDepth, isInTable), deepestTable) : isInTable;
}

quint32 RtfParagraphState::apply(const RtfToken &token, RtfParagraphRows &rows)
{
    const auto set = [](int &field, int value, Property property) {
        field = value;
        return quint32(property);
    };
    const auto length = [&](int &field, int least, Property property) {
        return set(field, qBound(least, token.parameter, largestLength), property);
    };
    const auto align = [&](Qt::Alignment value) { return set(alignment, int(value), Alignment); };

    switch (token.word) {
    case RtfWord::AlignLeft:
        return align(Qt::AlignLeft | Qt::AlignAbsolute);
    case RtfWord::AlignRight:
        return align(Qt::AlignRight | Qt::AlignAbsolute);
    case RtfWord::AlignCenter:
        return align(Qt::AlignHCenter);
    case RtfWord::AlignJustify:
    case RtfWord::AlignDistribute:
        return align(Qt::AlignJustify);
    case RtfWord::LeftIndent:
    case RtfWord::StartIndent:
        return length(left, -largestLength, LeftIndent);
    case RtfWord::RightIndent:
    case RtfWord::EndIndent:
        return length(right, -largestLength, RightIndent);
    case RtfWord::FirstLineIndent:
        return length(firstLine, -largestLength, FirstLine);
    case RtfWord::SpaceBefore:
        return length(before, 0, Before);
    case RtfWord::SpaceAfter:
        return length(after, 0, After);
    case RtfWord::LineSpacing:
        return length(spacing, -largestLength, Spacing);
    case RtfWord::LineSpacingMultiple:
        return set(isMultiple, token.parameter != 0, SpacingRule);
    case RtfWord::LeftToRightParagraph:
        return set(isRightToLeft, 0, Direction);
    case RtfWord::RightToLeftParagraph:
        return set(isRightToLeft, 1, Direction);
    case RtfWord::ParagraphShading:
        return set(shading, qMax(0, token.parameter), Shading);
    case RtfWord::PageBreakBefore:
        return set(breaksPage, token.isOn(), PageBreak);
    case RtfWord::KeepTogether:
        return set(staysTogether, token.isOn(), Together);
    case RtfWord::KeepWithNext:
        return set(staysWithNext, token.isOn(), WithNext);
    case RtfWord::OutlineLevel:
        return set(outline, levelOf(token), Outline);
    case RtfWord::WidowControl:
        return set(widows, token.isOn() ? On : Off, Widows);
    case RtfWord::NoWidowControl:
        return set(widows, Off, Widows);
    case RtfWord::Hyphenation:
        return set(hyphens, token.isOn() ? On : Off, Hyphens);
    case RtfWord::ContextualSpace:
        return set(isContextual, token.isOn(), Context);
    case RtfWord::ListNumber:
        return set(list, qMax(0, token.parameter), List);
    case RtfWord::ListLevel:
        return set(level, qBound(0, token.parameter, deepestLevel), Level);
    case RtfWord::InTable:
        return set(isInTable, token.isOn(), Table);
    case RtfWord::TableDepth:
        return set(tableDepth, qBound(0, token.parameter, deepestTable), Table);
    default:
        if (rows.borders.apply(token, borders))
            return Borders;
        return rows.stops.apply(token, tabs) ? quint32(Tabs) : 0;
    }
}

QString RtfParagraphState::flowWords() const
{
    QStringList words;
    if (staysTogether != 0)
        words.append(QStringLiteral("keep"));
    if (staysWithNext != 0)
        words.append(QStringLiteral("keepn"));
    if (widows != Unsaid)
        words.append(widows == On ? QStringLiteral("widctlpar") : QStringLiteral("nowidctlpar"));
    if (hyphens != Unsaid)
        words.append(hyphens == On ? QStringLiteral("hyphpar") : QStringLiteral("hyphpar0"));
    if (isContextual != 0)
        words.append(QStringLiteral("contextualspace"));
    if (outline != 0)
        words.append(QStringLiteral("outlinelevel%1").arg(outline - 1));
    return words.join(u' ');
}

void RtfParagraphState::take(const RtfParagraphState &other, quint32 which)
{
    const auto copy = [&](int RtfParagraphState::*field, quint32 property) {
        if ((which & property) != 0)
            this->*field = other.*field;
    };
    copy(&RtfParagraphState::alignment, Alignment);
    copy(&RtfParagraphState::left, LeftIndent);
    copy(&RtfParagraphState::right, RightIndent);
    copy(&RtfParagraphState::firstLine, FirstLine);
    copy(&RtfParagraphState::before, Before);
    copy(&RtfParagraphState::after, After);
    copy(&RtfParagraphState::spacing, Spacing);
    copy(&RtfParagraphState::isMultiple, SpacingRule);
    copy(&RtfParagraphState::isRightToLeft, Direction);
    copy(&RtfParagraphState::tabs, Tabs);
    copy(&RtfParagraphState::borders, Borders);
    copy(&RtfParagraphState::shading, Shading);
    copy(&RtfParagraphState::breaksPage, PageBreak);
    copy(&RtfParagraphState::staysTogether, Together);
    copy(&RtfParagraphState::staysWithNext, WithNext);
    copy(&RtfParagraphState::outline, Outline);
    copy(&RtfParagraphState::widows, Widows);
    copy(&RtfParagraphState::hyphens, Hyphens);
    copy(&RtfParagraphState::isContextual, Context);
    copy(&RtfParagraphState::list, List);
    copy(&RtfParagraphState::level, Level);
}
