#include "ListBoxRows.h"

#include <algorithm>

int ListBoxRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_shown;
}

QVariant ListBoxRows::data(const QModelIndex &index, int role) const
{
    return role == Qt::DisplayRole && index.isValid() ? QVariant(m_rows.at(index.row())) : QVariant();
}

Qt::ItemFlags ListBoxRows::flags(const QModelIndex &index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
}

void ListBoxRows::show()
{
    if (m_shown == count())
        return;
    beginInsertRows({}, m_shown, count() - 1);
    m_shown = count();
    endInsertRows();
}

void ListBoxRows::insert(int row, const QString &text)
{
    beginInsertRows({}, row, row);
    m_rows.insert(row, text);
    m_shown = count();
    endInsertRows();
}

void ListBoxRows::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    m_shown = count();
    endRemoveRows();
}

void ListBoxRows::clear()
{
    beginResetModel();
    m_rows.clear();
    m_shown = 0;
    endResetModel();
}

int ListBoxRows::sortedPlace(const QString &text) const
{
    const auto comesBefore = [](const QString &one, const QString &other) {
        return one.compare(other, Qt::CaseInsensitive) < 0;
    };
    return int(std::upper_bound(m_rows.cbegin(), m_rows.cend(), text, comesBefore) - m_rows.cbegin());
}
