#include "RowKeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

bool isVisibleText(const QString &text)
{
    return !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
}

} // namespace

bool RowKeys::beginSelection(QAbstractItemView &view, const QKeyEvent &event)
{
    if (event.key() == Qt::Key_End && !view.currentIndex().isValid())
        view.setCurrentIndex(view.model()->index(0, 0)); // from which the view goes to the last row
    if (view.selectionModel()->hasSelection())
        return false;
    if (isVisibleText(event.text()))
        view.selectionModel()->clearCurrentIndex(); // a search would begin behind it
    const bool isArrow = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    if (!isArrow || event.modifiers() & ~Qt::KeypadModifier)
        return false;
    const QModelIndex current = view.currentIndex();
    view.setCurrentIndex(current.isValid() ? current : view.model()->index(0, 0));
    return true;
}
