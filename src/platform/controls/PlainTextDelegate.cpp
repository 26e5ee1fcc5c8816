#include "PlainTextDelegate.h"

#include "EventGate.h"
#include "ShownText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QListView>
#include <QStyle>
#include <QToolTip>

namespace {

int iconRowHeight(const QStyle &style, const QStyleOption &option)
{
    constexpr int margins = 4; // pixels
    return style.pixelMetric(QStyle::PM_SmallIconSize, &option) + margins;
}

} // namespace

QString PlainTextDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return ShownText::line(value.toString());
}

/// A list whose items are of one size would give all of them the room of the first one's text.
QSize PlainTextDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto *list = qobject_cast<const QListView *>(option.widget);
    return list && list->gridSize().isValid() ? list->gridSize()
                                              : QStyledItemDelegate::sizeHint(option, index);
}

bool PlainTextDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    bool isCutOff = false;
    run([&] {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        isCutOff = event->type() == QEvent::ToolTip && index.isValid() &&
                   QStyledItemDelegate::sizeHint(option, index).width() > row.rect.width();
        if (isCutOff)
            QToolTip::showText(event->globalPos(), ShownText::toolTip(row.text), view->viewport(),
                               option.rect);
    });
    return isCutOff || QStyledItemDelegate::helpEvent(event, view, option, index);
}

int PlainTextDelegate::rowHeight(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    return qMax(QStyledItemDelegate::sizeHint(option, index).height(), iconRowHeight(*style, option));
}

int PlainTextDelegate::heightOfRows(const QListView &list, int rows)
{
    QStyleOptionViewItem row;
    row.initFrom(&list);
    row.font = list.font();
    row.text = QStringLiteral("x");
    row.features = QStyleOptionViewItem::HasDisplay;
    const int text = list.style()->sizeFromContents(QStyle::CT_ItemViewItem, &row, {}, &list).height();
    return rows * qMax(text, iconRowHeight(*list.style(), row)) + 2 * list.frameWidth();
}
