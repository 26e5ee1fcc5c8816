#pragma once

#include <QtGlobal>
#include <type_traits>

struct RtfToken;

/// How characters look, as far as control words say; \a Property names them in sets.
struct RtfCharacterState
{
    enum Property : quint32 {
        Bold = 1,
        Italic = 2,
        Strike = 4,
        Caps = 8,
        SmallCaps = 16,
        Hidden = 32,
        Deleted = 64,
        Switches = 127, ///< all of the above, which are bits of \a switches too
        Font = 256,
        Size = 512,
        Underline = 1024,
        Script = 2048, ///< with the shift
        Foreground = 8192,
        Shading = 16384,
        Highlight = 32768,
        Language = 65536
    };
    enum ScriptKind { Normal, Subscript, Superscript };

    static constexpr int standardFont = -1;
    static constexpr int standardSize = 24;

    int switches = 0;
    int font = standardFont; ///< number in the font table
    int halfPoints = standardSize;
    int underline = 0; ///< QTextCharFormat::UnderlineStyle
    int script = Normal;
    int shift = 0;      ///< half points, up positive
    int foreground = 0; ///< number in the colour table, 0 is automatic
    int shading = 0;
    int highlight = 0;
    int language = 0;
    int field = 0;     ///< RtfFormats, the one whose result the text is; 0 is none
    int note = 0;      ///< whose mark the text is, 0 is none
    int noteCount = 0; ///< what the mark says where notes are counted

    bool operator==(const RtfCharacterState &other) const = default;
    bool isShown() const { return (switches & (Hidden | Deleted)) == 0; }
    bool isHidden() const { return (switches & (Hidden | Deleted)) == Hidden; }

    /// Does what \a token says and returns the properties that it is about, 0 when it says nothing here.
    /// \plain and \cs are not known here.
    quint32 apply(const RtfToken &token);

    /// Takes over the properties \a which of \a other.
    void take(const RtfCharacterState &other, quint32 which);

private:
    quint32 applySwitch(quint32 property, bool on);
    quint32 applyUnderline(int style, bool on);
    quint32 applyScript(int kind, int shiftBy);
};

static_assert(std::has_unique_object_representations_v<RtfCharacterState>, "hashed by its bytes");
