#pragma once

class QTextBlock;
class QTextTableCell;
class QTextTableFormat;

/// Lays out a paragraph in a cell of a table once more where that leaves the table as it is.
namespace CellLines {

/// True when the columns of \a cell have widths of their own, in pixels, and no text has made them wider.
/// \a width is that of the cell, with its edges.
bool areFixed(const QTextTableFormat &table, const QTextTableCell &cell, double width);

/// Lays out \a paragraph, whose text has changed. False when its lines do not come to lie as they did, or a
/// word does not fit; the paragraph then has to be laid out anew, and its table with it.
bool layOutAgain(const QTextBlock &paragraph);

} // namespace CellLines
