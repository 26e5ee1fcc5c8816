#pragma once

class QRectF;
class QTextTable;
class QTextTableCell;

/// Where the layout has cells of tables.
namespace CellArea {

/// The area of \a cell of \a table in the document, with its edges; empty when built without Qt's private
/// headers.
QRectF of(QTextTable &table, const QTextTableCell &cell);

} // namespace CellArea
