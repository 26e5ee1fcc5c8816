#pragma once

#include <QAbstractListModel>
#include <QStringList>

/// File names in rows, as FileNames has them; NameDelegate marks what does not show itself.
class NameListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    const QStringList &names() const { return m_names; }
    void setNames(const QStringList &names);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QStringList m_names;
};
