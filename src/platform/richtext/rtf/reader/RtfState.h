#pragma once

#include "RtfAssociatedLooks.h"
#include "RtfCharacterState.h"
#include "RtfParagraphState.h"

class RtfPart;

/// What a group of the file inherits from the one around it, and what its end brings about.
struct RtfState
{
    enum class End : quint8 {
        Nothing,
        Generator,
        FontTable,
        StyleSheet,
        Label,
        OldNumbering,
        Instruction,
        Field,
        Picture,
        Note,
        Insertion,
        PageText,
        PropertyName,
        Kept,
        Information,
        Comment
    };

    RtfCharacterState characters;
    quint32 characterSet = 0; ///< the properties that the file itself asked for, which styles leave alone
    RtfAssociatedLooks associated;
    RtfParagraphState paragraph;
    quint32 paragraphSet = 0;
    RtfPart *part = nullptr; ///< who hears what the group holds; null for the document's text
    int fallbackCount = 1;   ///< characters behind a \u that are its fallback
    End end = End::Nothing;
    bool isPair = false; ///< holds the same text twice, in the code page and in Unicode
    bool isNestedRow = false;

    /// Whether the group holds a text of its own, which its end brings to its place.
    bool isStory() const
    {
        return end == End::Note || end == End::Insertion || end == End::PageText || end == End::Comment;
    }
};
