#pragma once

#include <QStyledItemDelegate>

/// Draws the rows of a list of file names: each as wide as the list, a name that is longer cut in the middle
/// and shown whole by a tool tip.
class NameDelegate : public QStyledItemDelegate
{
public:
    /// How many steps a row is moved to the right.
    static constexpr int DepthRole = Qt::UserRole;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    QStyleOptionViewItem indented(const QStyleOptionViewItem &option, const QModelIndex &index) const;
};
