#pragma once

class QTextDocument;

/// Table rows that a page's edge cuts. In the middle or at the foot of such a cell a line would be cut too,
/// or be lost between two pages.
namespace RowsAcrossPages {

/// Puts the text of such rows at their top. \a document has pages; their number stays.
void alignTop(QTextDocument &document);

} // namespace RowsAcrossPages
