#pragma once

#include <QList>
#include <QString>
#include <optional>

class QTextDocument;

/// Finds addresses in documents: hyperlinks of the file, web addresses and mail addresses in the text.
namespace LinkFinder {

struct Link
{
    int first = 0; ///< positions in the document
    int end = 0;
    QString target; ///< the hyperlink's address, else the text itself
    bool operator==(const Link &) const = default;
};

/// The links within or across \a first to \a end. An address in the text is seen up to two thousand
/// characters outside that range.
QList<Link> between(const QTextDocument &document, int first, int end);

std::optional<Link> at(const QTextDocument &document, int position);

} // namespace LinkFinder
