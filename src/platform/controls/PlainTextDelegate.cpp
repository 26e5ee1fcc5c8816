#include "PlainTextDelegate.h"

#include "EventGate.h"
#include "ShownText.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

QString PlainTextDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return shownText(value.toString());
}

bool PlainTextDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isCutOff =
        index.isValid() && QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width();
    if (event->type() != QEvent::ToolTip || !isCutOff)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    run([&] {
        const QString text = shownText(index.data().toString());
        QToolTip::showText(event->globalPos(), Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal),
                           view->viewport(), option.rect);
    });
    return true;
}
