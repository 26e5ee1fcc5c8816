#include "ChoiceList.h"

#include <QScrollBar>

ChoiceList::ChoiceList(QWidget *parent)
    : QListWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex &index,
                                                                 const QEvent *) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

QSize ChoiceList::sizeOf(int rows) const
{
    const QSize row(sizeHintForColumn(0) * 2 + verticalScrollBar()->sizeHint().width(), sizeHintForRow(0));
    return QSize(row.width(), row.height() * rows) + QSize(2, 2) * frameWidth();
}
