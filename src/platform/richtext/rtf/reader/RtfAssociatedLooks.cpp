#include "RtfAssociatedLooks.h"

#include "RtfLexer.h"
#include "RtfScript.h"

namespace {

/// The plain word that says what \a word says.
RtfWord plainWord(RtfWord word)
{
    switch (word) {
    case RtfWord::AssociatedFont:
        return RtfWord::Font;
    case RtfWord::AssociatedSize:
        return RtfWord::FontSize;
    case RtfWord::AssociatedBold:
        return RtfWord::Bold;
    case RtfWord::AssociatedItalic:
        return RtfWord::Italic;
    case RtfWord::AssociatedStrike:
        return RtfWord::Strike;
    case RtfWord::AssociatedUnderline:
        return RtfWord::Underline;
    case RtfWord::AssociatedForeground:
        return RtfWord::Foreground;
    default:
        return RtfWord::Unknown;
    }
}

} // namespace

void RtfAssociatedLooks::mark(RtfWord word)
{
    m_scriptBefore = m_script;
    switch (word) {
    case RtfWord::RightToLeftRun:
        m_isRightToLeft = true;
        m_about = Complex;
        break;
    case RtfWord::LeftToRightRun:
        m_isRightToLeft = false;
        m_about = Western;
        break;
    default:
        m_script = word == RtfWord::DoubleByteRun ? EastAsian : Western;
        m_about = m_script;
        break;
    }
}

bool RtfAssociatedLooks::apply(const RtfToken &token)
{
    RtfToken plain = token;
    plain.word = plainWord(token.word);
    if (plain.word == RtfWord::Unknown)
        return false;
    m_script = m_scriptBefore;
    if (m_about != Western)
        m_looks[m_about].set |= m_looks[m_about].characters.apply(plain);
    return true;
}

void RtfAssociatedLooks::overrule(quint32 properties)
{
    m_looks[script()].set &= ~properties;
}

RtfCharacterState RtfAssociatedLooks::look(const RtfCharacterState &plain) const
{
    return look(plain, script());
}

RtfCharacterState RtfAssociatedLooks::look(const RtfCharacterState &plain, char16_t c) const
{
    return look(plain, RtfScript::isComplex(c) ? Complex : script());
}

RtfCharacterState RtfAssociatedLooks::look(const RtfCharacterState &plain, Script script) const
{
    RtfCharacterState look = plain;
    if (m_looks[script].set != 0)
        look.take(m_looks[script].characters, m_looks[script].set);
    return look;
}
