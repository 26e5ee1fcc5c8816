#pragma once

#include <QByteArray>
#include <QString>

struct UConverter;

/// The encoding in which a dictionary holds its words.
class WordEncoding
{
public:
    /// \a name is as in a dictionary; UTF-8 where it is not known.
    explicit WordEncoding(const char *name);
    ~WordEncoding();
    WordEncoding(const WordEncoding &) = delete;
    WordEncoding &operator=(const WordEncoding &) = delete;

    /// Empty for a word with a letter that the encoding does not have.
    QByteArray encoded(const QString &word) const;
    QString decoded(const QByteArray &word) const;

private:
    UConverter *m_converter; ///< null for UTF-8
};
