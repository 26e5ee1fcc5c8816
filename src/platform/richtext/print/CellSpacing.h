#pragma once

class QTextDocument;

/// The space before the first paragraph of a cell and after the last one, which Qt leaves out.
namespace CellSpacing {

/// Adds it to the padding of the cells of \a document.
void moveToPadding(QTextDocument &document);

} // namespace CellSpacing
