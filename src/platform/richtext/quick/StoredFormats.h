#pragma once

#include <functional>

class QTextBlockFormat;
class QTextDocument;

/// The formats that a document keeps, also for what can be undone and redone.
namespace StoredFormats {

/// Changes the formats of paragraphs from the number \a first on where they are kept: no undo step and no
/// listener learns of it, and the layout does not follow by itself. Returns how many formats of all kinds
/// there are. Built without Qt's private headers it does nothing.
int changeParagraphs(QTextDocument &document, int first,
                     const std::function<void(QTextBlockFormat &)> &change);

} // namespace StoredFormats
