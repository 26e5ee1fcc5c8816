#include "RowKeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace {

bool isArrow(const QKeyEvent &event)
{
    const bool isUpOrDown = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    return isUpOrDown && !(event.modifiers() & ~Qt::KeypadModifier);
}

bool isTyped(const QKeyEvent &event)
{
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QString text = event.text();
    return !isCommand && !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
}

void selectFocused(QAbstractItemView &view)
{
    const QModelIndex focused = view.currentIndex();
    view.setCurrentIndex(focused.isValid() ? focused : view.model()->index(0, 0));
}

/// The focus stays where it is when nothing is found.
void searchFromFirst(QAbstractItemView &view, const QString &text)
{
    const QModelIndex focused = view.currentIndex();
    view.selectionModel()->clearCurrentIndex(); // the search begins behind it
    view.keyboardSearch(text);
    if (!view.currentIndex().isValid())
        view.selectionModel()->setCurrentIndex(focused, QItemSelectionModel::NoUpdate);
}

} // namespace

bool RowKeys::handle(QAbstractItemView &view, const QKeyEvent &event)
{
    if (event.key() == Qt::Key_End && !view.currentIndex().isValid())
        view.setCurrentIndex(view.model()->index(0, 0)); // from which the view goes to the last row
    if (view.selectionModel()->hasSelection())
        return false;
    if (isArrow(event))
        selectFocused(view);
    else if (isTyped(event))
        searchFromFirst(view, event.text());
    else
        return false;
    return true;
}
