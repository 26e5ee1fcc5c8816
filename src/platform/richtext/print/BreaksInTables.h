#pragma once

class QTextDocument;

/// Page breaks before paragraphs of cells, for each of which Qt would leave pages empty.
namespace BreaksInTables {

/// Puts those of a table's first row before the table, unless \a document begins with it, and takes back all
/// others.
void moveOut(QTextDocument &document);

} // namespace BreaksInTables
