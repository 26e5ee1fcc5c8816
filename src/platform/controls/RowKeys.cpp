#include "RowKeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>

bool RowKeys::beginSelection(QAbstractItemView &view, const QKeyEvent &event)
{
    if (event.key() == Qt::Key_End && !view.currentIndex().isValid())
        view.setCurrentIndex(view.model()->index(0, 0)); // from which the view goes to the last row
    const bool isArrow = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (!isArrow || event.modifiers() & ~Qt::KeypadModifier || view.selectionModel()->hasSelection())
        return false;
    const QModelIndex current = view.currentIndex();
    view.setCurrentIndex(current.isValid() ? current : view.model()->index(0, 0));
    return true;
}
