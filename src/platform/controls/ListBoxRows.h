#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// The rows of a list box. Appended rows wait until show(): views know of them only then.
class ListBoxRows : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// All rows, those that wait too.
    int count() const { return int(m_rows.size()); }
    const QString &text(int row) const { return m_rows.at(row); }
    void append(const QStringList &texts) { m_rows += texts; }
    void show();
    /// The rest is for when no row waits.
    void insert(int row, const QString &text);
    void remove(int row);
    void clear();
    /// Where a row with \a text belongs among rows that are sorted without regard to case; behind its equals.
    int sortedPlace(const QString &text) const;

private:
    QStringList m_rows;
    int m_shown = 0;
};
