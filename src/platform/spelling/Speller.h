#pragma once

#include "WordEncoding.h"

#include <QHash>
#include <QStringList>
#include <memory>

class Hunspell;

/// The dictionary of one language. Not for two threads at once.
class Speller
{
public:
    /// Reads PATH.aff and PATH.dic, which takes up to half a second. Without them no word is known.
    explicit Speller(const QString &path);
    ~Speller();

    /// True for every word where the dictionary's encoding is not known. Answers are kept, so that a word
    /// that was asked for before costs nearly nothing.
    bool knows(const QString &word);
    /// At most \a most words, the likeliest first. Takes up to a second.
    QStringList suggestions(const QString &word, int most);

private:
    std::unique_ptr<Hunspell> m_hunspell;
    WordEncoding m_encoding;
    QHash<QString, bool> m_answers;
};
