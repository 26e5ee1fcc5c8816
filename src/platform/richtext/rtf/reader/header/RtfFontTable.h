#pragma once

#include "RtfPart.h"
#include "RtfSymbolFont.h"

#include <QHash>
#include <QString>
#include <QVariantMap>

class RtfCodePage;

/// The fonts of a document and the code pages of their text.
class RtfFontTable : public RtfPart
{
public:
    struct Font
    {
        QString family;
        const RtfCodePage *page = nullptr;
        RtfSymbolFont::Kind signs = RtfSymbolFont::Kind::None;
    };

    RtfFontTable();

    /// Before the table is read; text without a font of its own is in that page too.
    void setStandardPage(int page);
    void setStandardFont(int number) { m_standardFont = number; }

    /// What is said about families beside their names, as RichTextProperty::FontWords.
    const QVariantMap &words() const { return m_words; }

    /// The font numbered \a number; -1 and unknown numbers are the document's default font.
    const Font &font(int number) const;

    void begin();
    void end();
    void open() override;
    void close() override;
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    bool isInEntry() const { return m_depth <= 1; }
    QString family() const;
    void keepWords(const QString &family);
    void flushName();
    void finishEntry();

    QHash<int, Font> m_fonts;
    QVariantMap m_words;
    Font m_standard;
    int m_standardPage;
    int m_standardFont = 0;

    // The entry that is being read
    int m_depth = 0;
    int m_number = -1;
    int m_page = 0;
    bool m_isSymbol = false;
    QByteArray m_nameBytes;
    QString m_name;
    RtfWord m_kind = RtfWord::FontOfNoKind;
    int m_pitch = 0;
    RtfWord m_inner = RtfWord::Unknown; ///< the word of the group inside the entry
    QByteArray m_panose;
    QString m_alternate;
};
