#pragma once

class QAbstractItemView;
class QKeyEvent;

/// What the keys do alike in the lists and trees.
namespace RowKeys {

/// Handles a key that would move the selection from the row that has the focus, while no row is selected: an
/// arrow up or down selects that row, or the first one, instead of the one beside it; and a typed text is
/// looked for from the first row on. Where no row has the focus, End goes to the last one, not to the first.
/// Returns false where the view has to handle \a event itself.
bool handle(QAbstractItemView &view, const QKeyEvent &event);

} // namespace RowKeys
