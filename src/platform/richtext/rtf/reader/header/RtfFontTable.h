#pragma once

#include "RtfPart.h"
#include "RtfSymbolFont.h"

#include <QHash>
#include <QString>

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
    void flushName();
    void finishEntry();

    QHash<int, Font> m_fonts;
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
};
