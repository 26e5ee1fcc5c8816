#pragma once

#include <QList>
#include <QString>

class QTextDocument;

/// Finds words that the dictionary of their language does not know. Addresses, numbers and text of a language
/// without a dictionary are passed over.
namespace MisspellingFinder {

struct Misspelling
{
    int first = 0; ///< positions in the document
    int end = 0;
    QString word;
    QString language; ///< as Spellers::of() takes it
};

/// Those in the paragraphs that \a first to \a end touch; none in a paragraph of more than twenty thousand
/// characters, which would take long.
QList<Misspelling> between(const QTextDocument &document, int first, int end);

} // namespace MisspellingFinder
