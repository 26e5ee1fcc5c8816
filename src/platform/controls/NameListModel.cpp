#include "NameListModel.h"

void NameListModel::setNames(const QStringList &names)
{
    beginResetModel();
    m_names = names;
    endResetModel();
}

int NameListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

Qt::ItemFlags NameListModel::flags(const QModelIndex &index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
}

QVariant NameListModel::data(const QModelIndex &index, int role) const
{
    return role == Qt::DisplayRole ? QVariant(m_names.value(index.row())) : QVariant();
}
