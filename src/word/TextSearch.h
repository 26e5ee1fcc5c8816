#pragma once

#include <QString>
#include <optional>

/// The searches of find and replace, over a text alone. Positions are between characters and count from 0,
/// unless stated otherwise.
namespace TextSearch {

struct Hit
{
    int position = 0; ///< of its first character, from 1; 0 for one that was refused as it is no whole word
    int end = 0;

    bool operator==(const Hit &) const = default;
};

struct Word
{
    QString text;
    int start = 0; ///< of what is to be selected
    int end = 0;

    bool operator==(const Word &) const = default;
};

/// The occurrence of \a wanted next to the selection from \a start to \a end, in the direction of \a flags
/// (FindFlag). The search wraps once. Intended: a hit that is no whole word ends the search as refused; it is
/// not skipped.
std::optional<Hit> find(const QString &text, int start, int end, const QString &wanted, int flags);

/// What a search begins with: the text selected from \a start to \a end, without outer blanks, or without a
/// selection the word around the caret; at the end of a word that is the next one. \a text is not empty.
Word wordAt(const QString &text, int start, int end);

/// Words end at blanks, commas, points, colons, semicolons and line ends.
bool isSeparator(QChar c);

/// \a text in lower case, of unchanged length: letters that have no lower case of their length stay.
QString lowered(QString text);

} // namespace TextSearch
