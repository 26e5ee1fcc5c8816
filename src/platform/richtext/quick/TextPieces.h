#pragma once

#include <QStringView>
#include <functional>

class QTextDocument;

/// The text of a document, paragraph separators included, without a copy of it, in pieces as they are stored:
/// a long text has about one for each run. Built without Qt's private headers a piece is a copy of a
/// paragraph, which takes some times longer.
namespace TextPieces {

/// True when \a isWanted is for one of the pieces that touch the \a length characters from position \a from
/// on.
bool any(const QTextDocument &document, int from, int length,
         const std::function<bool(QStringView)> &isWanted);

} // namespace TextPieces
