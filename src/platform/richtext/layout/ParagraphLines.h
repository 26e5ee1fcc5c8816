#pragma once

class QPainter;
class QTextBlock;
class QTextDocument;

/// The lines around paragraphs, which Qt does not know. They are painted around the text and take no room of
/// their own. Paragraphs that follow each other with the same lines and indents are in one frame.
namespace ParagraphLines {

/// Whether \a paragraph has any.
bool has(const QTextBlock &paragraph);

/// Whether a paragraph between \a from and \a end has any, or one beside those, whose frame depends on them.
bool areNear(const QTextDocument &document, int from, int end);

/// Pixels that they reach out of the text, at most, with \a dpi dots to the inch.
double farthest(double dpi);

/// Paints those of \a paragraph where its document's layout has it, with \a dpi dots to the inch, and with
/// the painter's colour where a line has none of its own.
void paint(const QTextBlock &paragraph, double dpi, QPainter &painter);

} // namespace ParagraphLines
