#include "NameDelegate.h"

#include "FolderRowsModel.h"

QSize NameDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {0, rowHeight(option, index)};
}

void NameDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const int step = option->decorationSize.width() / 2;
    PlainTextDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideMiddle;
    option->rect.setLeft(option->rect.left() + index.data(FolderRowsModel::DepthRole).toInt() * step);
}
