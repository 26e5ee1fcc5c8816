#include "ListBoxRows.h"

#include <algorithm>

int ListBoxRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ListBoxRows::data(const QModelIndex &index, int role) const
{
    return role == Qt::DisplayRole && index.isValid() ? QVariant(m_rows.at(index.row())) : QVariant();
}

void ListBoxRows::insert(int row, const QStringList &texts)
{
    if (texts.isEmpty())
        return;
    beginInsertRows({}, row, row + int(texts.size()) - 1);
    if (row == m_rows.size()) {
        m_rows += texts;
    } else {
        m_rows.insert(row, texts.size(), {});
        std::copy(texts.cbegin(), texts.cend(), m_rows.begin() + row);
    }
    endInsertRows();
}

void ListBoxRows::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

void ListBoxRows::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

int ListBoxRows::sortedPlace(const QString &text) const
{
    const auto comesBefore = [](const QString &one, const QString &other) {
        return one.compare(other, Qt::CaseInsensitive) < 0;
    };
    return int(std::upper_bound(m_rows.cbegin(), m_rows.cend(), text, comesBefore) - m_rows.cbegin());
}
