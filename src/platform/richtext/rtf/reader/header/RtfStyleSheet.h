#pragma once

#include "RtfCharacterState.h"
#include "RtfParagraphState.h"
#include "RtfPart.h"
#include "RtfTextPart.h"
#include "TextStyles.h"

#include <QMap>
#include <optional>

class RtfColorTable;
class RtfFontTable;
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
    using Kind = TextStyle::Kind;

    explicit RtfStyleSheet(RtfParagraphRows &rows);

    /// The style numbered \a number, or one that says nothing.
    const Style &style(Kind kind, int number);

    /// The name of the paragraph style numbered \a number; empty where there is none of that number. 0 is the
    /// style that paragraphs have without a word, and named by none.
    QString name(int number) const;

    /// What is kept of them.
    TextStyles::Sheet sheet(const RtfFontTable &fonts, const RtfColorTable &colors) const;

    /// Names are in \a page.
    void begin(const RtfCodePage &page);
    void end();
    void open() override;
    void close() override;
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    struct Entry
    {
        QString name;
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
    const RtfCodePage *m_page = nullptr;
    int m_depth = 0;
    bool m_isStyle = false;
    Kind m_kind = Kind::Paragraph;
    int m_number = 0;
    Entry m_entry;
    RtfTextPart m_name;
};
