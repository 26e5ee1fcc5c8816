#pragma once

#include <QTextBlockFormat>

/// Paragraph lengths in twips, kept as properties and laid out in pixels of the screen's logical resolution.
///
/// A paragraph in a list hangs its mark left of the text: Qt draws it there by itself, so the first-line
/// indent of such a paragraph is kept but not laid out.
namespace ParagraphFormat {

/// Pixels to the inch that documents are laid out with: the primary screen's, 96 without a screen.
double layoutDpi();

/// Pixels of the layout in whole twips.
int toTwips(double pixels);

/// In twips: the property, or where a format has none, what its pixels say.
int leftIndent(const QTextBlockFormat &format);
int rightIndent(const QTextBlockFormat &format);
int firstLineIndent(const QTextBlockFormat &format);
int spaceBefore(const QTextBlockFormat &format);
int spaceAfter(const QTextBlockFormat &format);

/// All in twips; negative values are allowed where the format knows them (the two indents of lines). To be
/// called again after a change of list membership.
void setIndents(QTextBlockFormat &format, int left, int right, int firstLine);
void setSpacing(QTextBlockFormat &format, int before, int after);

/// \a spacing in twips as the file gives it: 0 automatic, negative exact, else at least; with \a isMultiple
/// in 240ths of a line.
void setLineSpacing(QTextBlockFormat &format, int spacing, bool isMultiple);

} // namespace ParagraphFormat
