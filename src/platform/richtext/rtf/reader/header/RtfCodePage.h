#pragma once

#include <QByteArrayView>
#include <QString>
#include <array>

struct UConverter;

/// One code page, from bytes to text. Pages are made once and live as long as their thread.
class RtfCodePage
{
public:
    static constexpr int standard = 1252;
    static constexpr int symbol = 42;

    /// The page of that number; one that nobody knows is taken as the standard page.
    static const RtfCodePage &page(int number);

    /// The page's number for a font's \fcharset; \a standardPage where the charset leaves it open.
    static int numberOfCharset(int charset, int standardPage);

    ~RtfCodePage();

    /// True when a character may take several bytes.
    bool isMultiByte() const { return m_isMultiByte; }

    /// Appends \a bytes as text: whole characters in one call, control characters but the tab left out,
    /// what the page does not have as U+FFFD.
    void append(QString &text, QByteArrayView bytes) const;

private:
    explicit RtfCodePage(int number);

    void fillTable();
    void appendMultiByte(QString &text, QByteArrayView bytes) const;
    void appendConverted(QString &text, QByteArrayView bytes) const;

    int m_number;
    bool m_isMultiByte = false;
    UConverter *m_converter = nullptr;
    std::array<char16_t, 256> m_table{}; ///< 0: left out
};
