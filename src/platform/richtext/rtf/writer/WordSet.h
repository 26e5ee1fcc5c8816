#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

/// Runs of control words, each kept once, so that equal ones have the same number.
class WordSet
{
public:
    /// The number of \a words; 0 is the empty run.
    int number(const QByteArray &words)
    {
        const auto known = m_numbers.constFind(words);
        if (known != m_numbers.constEnd())
            return *known;
        m_words.append(words);
        return *m_numbers.insert(words, int(m_words.size()) - 1);
    }

    const QByteArray &at(int number) const { return m_words.at(number); }

private:
    QList<QByteArray> m_words = {QByteArray()};
    QHash<QByteArray, int> m_numbers = {{QByteArray(), 0}};
};
