#pragma once

#include <QString>
#include <type_traits>

struct RtfToken;
struct RtfParagraphRows;

/// How a paragraph looks and where it belongs, as far as control words say. Lengths in twips.
struct RtfParagraphState
{
    enum Property : quint32 {
        Alignment = 1,
        LeftIndent = 2,
        RightIndent = 4,
        FirstLine = 8,
        Before = 16,
        After = 32,
        Spacing = 64,
        SpacingRule = 128,
        Direction = 256,
        Tabs = 512,
        Shading = 1024,
        PageBreak = 2048,
        List = 4096,
        Level = 8192,
        Table = 16384,
        Borders = 32768,
        Together = 65536,
        WithNext = 131072,
        Outline = 262144,
        Widows = 524288,
        Hyphens = 1048576,
        Context = 2097152
    };

    enum Choice { Unsaid, On, Off };

    static constexpr int deepestTable = 16; ///< tables inside each other

    int alignment = 0; ///< Qt::Alignment, 0 is by direction
    int left = 0;
    int right = 0;
    int firstLine = 0;
    int before = 0;
    int after = 0;
    int spacing = 0;
    int isMultiple = 0;
    int isRightToLeft = 0;
    int tabs = 0;    ///< RtfTabStops
    int borders = 0; ///< RtfBorders
    int shading = 0;
    int breaksPage = 0;
    int staysTogether = 0;
    int staysWithNext = 0;
    int outline = 0;      ///< level of a heading from 1, 0 is none
    int widows = 0;       ///< Choice
    int hyphens = 0;      ///< Choice
    int isContextual = 0; ///< no space between it and others of its style
    int style = 0;        ///< \s
    int list = 0;         ///< \ls, 0 is none
    int level = 0;        ///< \ilvl
    int oldNumbering = 0; ///< RtfOldNumbering, 0 is none
    int isInTable = 0;
    int section = 0; ///< RtfFormats, the one that begins with it, 0 is none
    int note = 0;    ///< whose text it is, 0 is none
    int isNoteAtEnd = 0;
    int tableDepth = -1; ///< \itap, -1 when the file does not say

    bool operator==(const RtfParagraphState &other) const = default;

    /// 0 outside tables, 1 in a table, 2 in a table inside a cell ...
    int depth() const;

    /// Does what \a token says and returns the properties that it is about, 0 when it says nothing here.
    /// \pard and \s are not known here.
    quint32 apply(const RtfToken &token, RtfParagraphRows &rows);

    /// As RichTextProperty::Flow.
    QString flowWords() const;

    /// Takes over the properties \a which of \a other.
    void take(const RtfParagraphState &other, quint32 which);
};

static_assert(std::has_unique_object_representations_v<RtfParagraphState>, "hashed by its bytes");
