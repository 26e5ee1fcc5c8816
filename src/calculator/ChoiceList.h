#pragma once

#include <QListWidget>

/// A list box as large as its rows, at least three of them, in which one row stays chosen: no key and no
/// click takes the choice back.
class ChoiceList : public QListWidget
{
public:
    explicit ChoiceList(QWidget *parent);

    QSize sizeHint() const override { return sizeOf(count()); }
    QSize minimumSizeHint() const override { return sizeOf(fewestRows); }

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    static constexpr int fewestRows = 3;

    QSize sizeOf(int rows) const;
};
