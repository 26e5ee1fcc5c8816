#pragma once

class QAbstractItemView;
class QKeyEvent;

/// What the keys do alike in the lists and trees.
namespace RowKeys {

/// Where no row is selected, an arrow up or down selects the row that has the focus, or the first one,
/// instead of the one beside it. Returns whether \a event was such a key.
bool beginSelection(QAbstractItemView &view, const QKeyEvent &event);

} // namespace RowKeys
