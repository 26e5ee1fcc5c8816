#pragma once

#include <QColor>
#include <QTextCursor>
#include <optional>

/// What all characters of a selection have in common; nullopt is mixed.
struct CharacterStates
{
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;
    std::optional<bool> strikeThru;
    std::optional<QColor> color;
    std::optional<QString> fontName;
    std::optional<double> fontSize; ///< points

    bool operator==(const CharacterStates &) const = default;
};

/// What all paragraphs of a selection have in common; nullopt is mixed. Lengths are twips.
struct ParagraphStates
{
    std::optional<int> alignment; ///< 0 left, 1 right, 2 centre, as seen
    std::optional<bool> bullet;
    std::optional<int> indent; ///< of the first line
    std::optional<int> rightIndent;

    bool operator==(const ParagraphStates &) const = default;
};

/// Reads the states of selections. A selection is walked once and remembered until it or the text changes, as
/// toolbars ask for the states one after another and a selection may hold every run of a large document.
class SelectionFormats
{
public:
    /// An empty selection has the states of \a typing, the format that typed text would get.
    CharacterStates characters(const QTextCursor &selection, const QTextCharFormat &typing);
    ParagraphStates paragraphs(const QTextCursor &selection);

    /// To be called when another document takes the place of the one asked about.
    void forget();

private:
    struct Key
    {
        int revision = -1;
        int anchor = -1;
        int position = -1;
        bool operator==(const Key &) const = default;
    };
    static Key keyOf(const QTextCursor &selection);

    Key m_charactersKey;
    CharacterStates m_characters;
    Key m_paragraphsKey;
    ParagraphStates m_paragraphs;
};
