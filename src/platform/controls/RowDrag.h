#pragma once

#include <Qt>

class QAbstractItemView;

/// Drags the current row of a list of names.
namespace RowDrag {

/// As the view's own startDrag(), but the picture beside the pointer is the row's icon and name, not the
/// whole row. A row without an icon has that of a file, or of a folder where its name ends in "/". Returns
/// when the drag is over; other handlers run meanwhile.
void start(QAbstractItemView &view, Qt::DropActions actions);

} // namespace RowDrag
