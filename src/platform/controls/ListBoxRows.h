#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// The rows of a list box.
class ListBoxRows : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    const QString &text(int row) const { return m_rows.at(row); }
    void insert(int row, const QStringList &texts);
    void remove(int row);
    void clear();
    /// Where a row with \a text belongs among rows that are sorted without regard to case; behind its equals.
    int sortedPlace(const QString &text) const;

private:
    QStringList m_rows;
};
