#pragma once

class QTextBlock;
class QTextTableCell;
class QTextTableFormat;

/// Lays out a paragraph once more where that leaves everything around it in its place.
namespace UnmovedLines {

/// True when the columns of \a cell have widths of their own, in pixels, and no text has made them wider.
/// \a width is that of the cell, with its edges.
bool isFixed(const QTextTableFormat &table, const QTextTableCell &cell, double width);

/// Lays out \a paragraph, whose text has changed but not its format. False when its lines are not where they
/// were, or a word does not fit; the paragraph then has to be laid out anew, and what is around it too.
bool layOutAgain(const QTextBlock &paragraph);

} // namespace UnmovedLines
