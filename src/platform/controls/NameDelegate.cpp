#include "NameDelegate.h"

#include "EventGate.h"
#include "ShownText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

QStyleOptionViewItem NameDelegate::indented(const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    QStyleOptionViewItem moved = option;
    initStyleOption(&moved, index);
    moved.textElideMode = Qt::ElideMiddle;
    moved.rect.setLeft(option.rect.left() +
                       index.data(DepthRole).toInt() * option.decorationSize.width() / 2);
    return moved;
}

void NameDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, indented(option, index), index);
}

QSize NameDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {0, QStyledItemDelegate::sizeHint(option, index).height()};
}

bool NameDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                             const QModelIndex &index)
{
    bool isShown = false;
    run([&] {
        const QStyleOptionViewItem row = indented(option, index);
        const int width = QStyledItemDelegate::sizeHint(option, index).width();
        isShown = event->type() == QEvent::ToolTip && index.isValid() && width > row.rect.width();
        if (isShown)
            QToolTip::showText(event->globalPos(), ShownText::toolTip(row.text), view);
    });
    return isShown || QStyledItemDelegate::helpEvent(event, view, option, index);
}
