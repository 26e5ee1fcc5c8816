#include "RtfCharacterState.h"

#include "RtfLexer.h"

#include <QTextCharFormat>

namespace {

constexpr int largestSize = 3276; // half points, the most that the format writes down
constexpr int usualShift = 6;     // half points, of \up and \dn without a number

int underlineStyle(RtfWord word)
{
    switch (word) {
    case RtfWord::UnderlineDotted:
    case RtfWord::UnderlineThickDotted:
        return QTextCharFormat::DotLine;
    case RtfWord::UnderlineDash:
    case RtfWord::UnderlineLongDash:
    case RtfWord::UnderlineThickDash:
    case RtfWord::UnderlineThickLongDash:
        return QTextCharFormat::DashUnderline;
    case RtfWord::UnderlineDashDot:
    case RtfWord::UnderlineThickDashDot:
        return QTextCharFormat::DashDotLine;
    case RtfWord::UnderlineDashDotDot:
    case RtfWord::UnderlineThickDashDotDot:
        return QTextCharFormat::DashDotDotLine;
    case RtfWord::UnderlineWave:
    case RtfWord::UnderlineHeavyWave:
    case RtfWord::UnderlineDoubleWave:
        return QTextCharFormat::WaveUnderline;
    case RtfWord::Underline:
    case RtfWord::UnderlineDouble:
    case RtfWord::UnderlineThick:
    case RtfWord::UnderlineWords:
        return QTextCharFormat::SingleUnderline;
    default:
        return QTextCharFormat::NoUnderline;
    }
}

} // namespace

quint32 RtfCharacterState::apply(const RtfToken &token)
{
    const auto set = [](int &member, int value, Property property) {
        member = value;
        return quint32(property);
    };
    const auto colour = [&](int &member, Property property) {
        return set(member, qMax(0, token.parameter), property);
    };
    switch (token.word) {
    case RtfWord::Bold:
        return applySwitch(Bold, token.isOn());
    case RtfWord::Italic:
        return applySwitch(Italic, token.isOn());
    case RtfWord::Strike:
    case RtfWord::DoubleStrike:
        return applySwitch(Strike, token.isOn());
    case RtfWord::Caps:
        return applySwitch(Caps, token.isOn());
    case RtfWord::SmallCaps:
        return applySwitch(SmallCaps, token.isOn());
    case RtfWord::Hidden:
        return applySwitch(Hidden, token.isOn());
    case RtfWord::Deleted:
        return applySwitch(Deleted, token.isOn());
    case RtfWord::Font:
        return set(font, qMax(0, token.parameter), Font);
    case RtfWord::FontSize:
        return set(halfPoints, token.parameter > 0 ? qMin(token.parameter, largestSize) : standardSize, Size);
    case RtfWord::Subscript:
        return applyScript(token.isOn() ? Subscript : Normal, 0);
    case RtfWord::Superscript:
        return applyScript(token.isOn() ? Superscript : Normal, 0);
    case RtfWord::NoScript:
        return applyScript(Normal, 0);
    case RtfWord::Up:
        return applyScript(Normal, qBound(0, token.parameterOr(usualShift), largestSize));
    case RtfWord::Down:
        return applyScript(Normal, -qBound(0, token.parameterOr(usualShift), largestSize));
    case RtfWord::Foreground:
        return colour(foreground, Foreground);
    case RtfWord::Background:
    case RtfWord::CharacterShading:
        return colour(shading, Shading);
    case RtfWord::Highlight:
        return colour(highlight, Highlight);
    case RtfWord::Language:
        return set(language, qMax(0, token.parameter), Language);
    case RtfWord::UnderlineNone:
        return set(underline, QTextCharFormat::NoUnderline, Underline);
    default:
        return applyUnderline(underlineStyle(token.word), token.isOn());
    }
}

void RtfCharacterState::take(const RtfCharacterState &other, quint32 which)
{
    const int bits = int(which & Switches);
    switches = (switches & ~bits) | (other.switches & bits);
    const auto copy = [&](int RtfCharacterState::*member, quint32 property) {
        if ((which & property) != 0)
            this->*member = other.*member;
    };
    copy(&RtfCharacterState::font, Font);
    copy(&RtfCharacterState::halfPoints, Size);
    copy(&RtfCharacterState::underline, Underline);
    copy(&RtfCharacterState::script, Script);
    copy(&RtfCharacterState::shift, Script);
    copy(&RtfCharacterState::foreground, Foreground);
    copy(&RtfCharacterState::shading, Shading);
    copy(&RtfCharacterState::highlight, Highlight);
    copy(&RtfCharacterState::language, Language);
}

quint32 RtfCharacterState::applySwitch(quint32 property, bool on)
{
    switches = on ? switches | int(property) : switches & ~int(property);
    return property;
}

quint32 RtfCharacterState::applyUnderline(int style, bool on)
{
    if (style == QTextCharFormat::NoUnderline)
        return 0;
    underline = on ? style : int(QTextCharFormat::NoUnderline);
    return Underline;
}

quint32 RtfCharacterState::applyScript(int kind, int shiftBy)
{
    script = kind;
    shift = shiftBy;
    return Script;
}
