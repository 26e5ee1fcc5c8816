#pragma once

class QAbstractItemView;
class QKeyEvent;

/// What the keys do alike in the lists and trees.
namespace RowKeys {

/// Where no row is selected, an arrow up or down selects the row that has the focus, or the first one,
/// instead of the one beside it; End goes to the last one, not to the first; and a text that is typed is
/// looked for from the first row on. Returns whether the view has
/// nothing more to do for \a event.
bool beginSelection(QAbstractItemView &view, const QKeyEvent &event);

} // namespace RowKeys
