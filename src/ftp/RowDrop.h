#pragma once

#include <QObject>

class QAbstractItemView;

/// Lets a row of one list be dragged onto another one.
class RowDrop : public QObject
{
    Q_OBJECT

public:
    /// A list that is disabled takes no row. Is owned by \a onto; both lists belong to the same window.
    RowDrop(QAbstractItemView &from, QAbstractItemView &onto);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// A row was dropped. Comes by an event of its own, when the drag is over.
    void Dropped();

private:
    void take(QEvent &event);

    QAbstractItemView &m_from;
    QAbstractItemView &m_onto;
};
