#include "ListItemsModel.h"

#include "RuntimeError.h"
#include "ShownText.h"

#include <iterator>

const ListItem &ListItemsModel::Item(int index) const
{
    return m_items[std::size_t(rowOf(index))];
}

const ListItem &ListItemsModel::Item(const QString &key) const
{
    return Item(IndexOf(key));
}

int ListItemsModel::IndexOf(const QString &key) const
{
    updateIndex();
    const auto found = m_rowOfKey.constFind(key);
    if (found == m_rowOfKey.cend())
        throw RuntimeError(ErrorNumber::ElementNotFound, {}, key);
    return *found + 1;
}

void ListItemsModel::Add(ListItem item)
{
    std::vector<ListItem> items;
    items.push_back(std::move(item));
    addItems(std::move(items));
}

void ListItemsModel::addItems(std::vector<ListItem> items)
{
    if (items.empty())
        return;
    const int first = Count();
    indexKeys(items, first);
    beginInsertRows({}, first, first + int(items.size()) - 1);
    if (m_items.empty())
        m_items = std::move(items);
    else
        std::move(items.begin(), items.end(), std::back_inserter(m_items));
    endInsertRows();
}

void ListItemsModel::indexKeys(const std::vector<ListItem> &items, int firstRow)
{
    updateIndex();
    m_rowOfKey.reserve(firstRow + int(items.size()));
    for (const ListItem &item : items) {
        const int row = firstRow++;
        if (item.Key.isEmpty())
            continue;
        if (m_rowOfKey.contains(item.Key)) {
            m_isIndexCurrent = false;
            throw RuntimeError(ErrorNumber::KeyNotUnique, {}, item.Key);
        }
        m_rowOfKey.insert(item.Key, row);
    }
}

void ListItemsModel::updateIndex() const
{
    if (m_isIndexCurrent)
        return;
    m_rowOfKey.clear();
    for (int row = 0; row < Count(); ++row) {
        const QString &key = m_items[std::size_t(row)].Key;
        if (!key.isEmpty())
            m_rowOfKey.insert(key, row);
    }
    m_isIndexCurrent = true;
}

void ListItemsModel::Remove(int index)
{
    const int row = rowOf(index);
    beginRemoveRows({}, row, row);
    m_items.erase(m_items.begin() + row);
    m_isIndexCurrent = false;
    endRemoveRows();
}

void ListItemsModel::Clear()
{
    beginResetModel();
    m_items.clear();
    m_rowOfKey.clear();
    m_isIndexCurrent = true;
    endResetModel();
}

void ListItemsModel::setChecked(int index, bool checked)
{
    const int row = rowOf(index);
    m_items[std::size_t(row)].Checked = checked;
    const QModelIndex place = this->index(row, 0);
    Q_EMIT dataChanged(place, place, {Qt::CheckStateRole});
}

void ListItemsModel::setColumnHeaders(const QList<ColumnHeader> &headers)
{
    beginResetModel();
    m_headers = headers;
    endResetModel();
}

const ColumnHeader &ListItemsModel::columnHeader(int index) const
{
    if (index < 1 || index > m_headers.size())
        throw RuntimeError(ErrorNumber::IndexOutOfBounds);
    return m_headers.at(index - 1);
}

void ListItemsModel::setCheckboxes(bool shown)
{
    if (shown == m_hasCheckboxes)
        return;
    m_hasCheckboxes = shown;
    if (Count() > 0 && !m_headers.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(Count() - 1, 0));
}

int ListItemsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count();
}

int ListItemsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_headers.size());
}

Qt::ItemFlags ListItemsModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsUserCheckable, m_hasCheckboxes && index.column() == 0);
    return flags;
}

QVariant ListItemsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ListItem &item = m_items[std::size_t(index.row())];
    const bool isFirst = index.column() == 0;
    switch (role) {
    case Qt::DisplayRole:
        return isFirst ? item.Text : item.SubItems.value(index.column() - 1);
    case Qt::DecorationRole:
        return isFirst && !item.Icon.isNull() ? QVariant(item.Icon) : QVariant();
    case Qt::CheckStateRole:
        return isFirst && m_hasCheckboxes ? QVariant(item.Checked ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::TextAlignmentRole:
        return alignmentOf(index.column());
    default:
        return {};
    }
}

bool ListItemsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid())
        return false;
    setChecked(index.row() + 1, value.toInt() == Qt::Checked);
    Q_EMIT ItemCheck(index.row() + 1);
    return true;
}

QVariant ListItemsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_headers.size())
        return {};
    if (role == Qt::DisplayRole)
        return ShownText::line(m_headers.at(section).Text);
    return role == Qt::TextAlignmentRole ? alignmentOf(section) : QVariant();
}

QVariant ListItemsModel::alignmentOf(int column) const
{
    return QVariant::fromValue(m_headers.at(column).Alignment | Qt::AlignVCenter);
}

int ListItemsModel::rowOf(int index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(ErrorNumber::IndexOutOfBounds);
    return index - 1;
}
