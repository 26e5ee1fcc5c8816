#pragma once

#include <QString>

class QTextDocument;

/// What differs first between two documents: their text, the format of a character, a paragraph, a list or a
/// table. Empty when nothing does. The names that pictures have inside a document and what is not
/// shown do not count.
QString firstDifference(const QTextDocument &one, const QTextDocument &other);
