#pragma once

#include "WordEncoding.h"

#include <QHash>
#include <QStringList>
#include <memory>
#include <mutex>

class Hunspell;

/// The dictionary of one language.
class Speller : public std::enable_shared_from_this<Speller>
{
public:
    /// Reads PATH.aff and PATH.dic, which takes up to half a second. Without them no word is known.
    explicit Speller(const QString &path);
    ~Speller();

    /// True for every word where the dictionary's encoding is not known. Answers are kept, so that a word
    /// that was asked for before costs nearly nothing. For one thread alone; while another looks for
    /// suggestions a word that is asked for first passes as known.
    bool knows(const QString &word);
    /// At most \a most words, the likeliest first. Takes up to a second; any thread may ask.
    QStringList suggestions(const QString &word, int most);

private:
    std::mutex m_mutex; ///< of the dictionary and its encoding
    std::unique_ptr<Hunspell> m_hunspell;
    WordEncoding m_encoding;
    QHash<QString, bool> m_answers;
};
