#pragma once

#include <QStyledItemDelegate>

class QListView;

/// Shows the texts of a list or tree as ShownText::line() has them. Where a text is cut off, its tool tip has
/// all of it. The texts of the model stay as they are. In a list with a grid each item has a whole cell.
class PlainTextDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

    /// The height in pixels of a list with so many rows of one line, each of which has, or could have, a
    /// small icon. The list may be empty.
    static int heightOfRows(const QListView &list, int rows);

protected:
    /// The height of a row that has, or could have, a small icon: so lists beside each other have rows of one
    /// height.
    int rowHeight(const QStyleOptionViewItem &option, const QModelIndex &index) const;
};
