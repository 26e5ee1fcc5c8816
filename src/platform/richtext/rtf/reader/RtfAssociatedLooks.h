#pragma once

#include "RtfCharacterState.h"
#include "RtfKeywords.h"

/// How text of other scripts looks where that differs from what plain words such as \f say, and which script
/// the text is in.
///
/// The text is in the script marked last. A mark that associated words such as \af follow is none: it only
/// says which of them these are about. Where the text runs from right to left, all of it counts as complex,
/// and elsewhere the letters of complex scripts, which some writers leave without a mark.
class RtfAssociatedLooks
{
public:
    /// \a word is \loch, \hich, \dbch, \ltrch or \rtlch.
    void mark(RtfWord word);
    /// Does what \a token says; false when it is no associated word.
    bool apply(const RtfToken &token);
    /// Plain words have said \a properties, which holds for the script of the text as well.
    void overrule(quint32 properties);

    /// How text looks that \a plain is said about.
    RtfCharacterState look(const RtfCharacterState &plain) const;
    RtfCharacterState look(const RtfCharacterState &plain, char16_t c) const;

private:
    enum Script : quint8 { Western, EastAsian, Complex, ScriptCount };
    struct Look
    {
        RtfCharacterState characters;
        quint32 set = 0; ///< the properties that differ
    };

    Script script() const { return m_isRightToLeft ? Complex : m_script; }
    RtfCharacterState look(const RtfCharacterState &plain, Script script) const;

    Look m_looks[ScriptCount]; ///< that of western text says nothing
    Script m_about = Western;  ///< whom associated words are about
    Script m_script = Western;
    Script m_scriptBefore = Western; ///< the last mark
    bool m_isRightToLeft = false;
};
