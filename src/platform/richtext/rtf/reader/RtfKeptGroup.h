#pragma once

#include "RtfPart.h"

#include <QHash>
#include <QString>

class RtfCodePage;

/// A group that is written back as it came, such as a bookmark: its words as they are, its text in ASCII.
class RtfKeptGroup : public RtfPart
{
public:
    /// \a word has begun the group; text is in \a page.
    void begin(const RtfToken &word, const RtfCodePage &page);
    /// The group, braces included.
    QByteArray end();

    /// The text of the group inside this one, or one before, that \a word has begun, such as the title; or
    /// the number behind the word.
    QString text(RtfWord word) const { return m_texts.value(word).trimmed(); }

    void open() override;
    void close() override;
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;
    void character(char16_t c) override;

private:
    void append(const RtfToken &word);
    void flush();

    const RtfCodePage *m_page = nullptr;
    QByteArray m_group;
    QByteArray m_bytes;
    bool m_wordIsOpen = false;          ///< the last word would swallow a letter or blank behind it
    RtfWord m_begun = RtfWord::Unknown; ///< the word that has begun the inner group
    QHash<RtfWord, QString> m_texts;
};
