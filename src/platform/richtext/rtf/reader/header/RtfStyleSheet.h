#pragma once

#include "RtfCharacterState.h"
#include "RtfParagraphState.h"
#include "RtfPart.h"

#include <QList>
#include <QMap>
#include <optional>

struct RtfParagraphRows;

/// The styles of a document, each with what it takes from the style it is based on.
class RtfStyleSheet : public RtfPart
{
public:
    struct Style
    {
        RtfCharacterState characters;
        quint32 characterSet = 0; ///< the properties that the style says something about
        RtfParagraphState paragraph;
        quint32 paragraphSet = 0;
    };
    enum class Kind { Paragraph, Character };

    explicit RtfStyleSheet(RtfParagraphRows &rows);

    /// The style numbered \a number, or one that says nothing.
    const Style &style(Kind kind, int number);

    void begin();
    void end();
    void open() override;
    void close() override;
    void word(const RtfToken &token) override;

private:
    struct Entry
    {
        std::optional<int> basedOn;
        QList<RtfToken> words;
        std::optional<Style> resolved;
    };
    using Entries = QMap<std::pair<Kind, int>, Entry>;

    void finishEntry();
    Style resolve(Kind kind, int number) const;
    void apply(const Entry &entry, Style &style) const;

    RtfParagraphRows &m_rows;
    Entries m_entries;

    // The entry that is being read
    int m_depth = 0;
    bool m_isStyle = false;
    Kind m_kind = Kind::Paragraph;
    int m_number = 0;
    Entry m_entry;
};
