#pragma once

#include <QByteArray>
#include <QString>

struct UConverter;

/// The encoding in which a dictionary holds its words.
class WordEncoding
{
public:
    /// \a name is as in a dictionary.
    explicit WordEncoding(const char *name);
    ~WordEncoding();
    WordEncoding(const WordEncoding &) = delete;
    WordEncoding &operator=(const WordEncoding &) = delete;

    /// False for a name that is not known; no word has bytes then.
    bool isKnown() const { return m_converter; }

    /// Empty for a word with a letter that the encoding does not have.
    QByteArray encoded(const QString &word) const;
    QString decoded(const QByteArray &word) const;

private:
    UConverter *m_converter;
};
