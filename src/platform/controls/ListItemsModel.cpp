#include "ListItemsModel.h"

#include "EventGate.h"
#include "RuntimeError.h"
#include "ShownText.h"

ListItem ListItemsModel::Item(int index) const
{
    const Row &found = row(index);
    ListItem item;
    if (found.added) {
        item = *found.added;
    } else {
        item = {keyOf(found), textOf(found, 0), {}, iconOf(found)};
        for (int column = 1; column < columnCount(); ++column)
            item.SubItems.append(textOf(found, column));
    }
    item.Checked = found.isChecked;
    return item;
}

QString ListItemsModel::key(int index) const
{
    return keyOf(row(index));
}

bool ListItemsModel::isChecked(int index) const
{
    return row(index).isChecked;
}

QString ListItemsModel::keyOf(const Row &row) const
{
    return row.added ? row.added->Key : m_source->key(row.source);
}

QString ListItemsModel::textOf(const Row &row, int column) const
{
    if (!row.added)
        return m_source->text(row.source, column);
    return column == 0 ? row.added->Text : row.added->SubItems.value(column - 1);
}

QIcon ListItemsModel::iconOf(const Row &row) const
{
    return row.added ? row.added->Icon : m_source->icon(row.source);
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
    m_rows.reserve(m_rows.size() + items.size());
    for (ListItem &item : items) {
        const bool isChecked = item.Checked;
        m_rows.push_back({.added = std::make_unique<ListItem>(std::move(item)), .isChecked = isChecked});
    }
    endInsertRows();
}

void ListItemsModel::setRows(const QList<ColumnHeader> &headers, std::unique_ptr<const ListRows> rows)
{
    beginResetModel();
    forgetRows();
    m_headers = headers;
    m_source = std::move(rows);
    m_rows.resize(std::size_t(m_source->count()));
    for (int i = 0; i < Count(); ++i)
        m_rows[std::size_t(i)].source = i;
    m_isIndexCurrent = m_rows.empty();
    endResetModel();
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
        const QString key = keyOf(m_rows[std::size_t(row)]);
        if (!key.isEmpty())
            m_rowOfKey.insert(key, row);
    }
    m_isIndexCurrent = true;
}

void ListItemsModel::Remove(int index)
{
    const int row = rowOf(index);
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    m_isIndexCurrent = false;
    endRemoveRows();
}

void ListItemsModel::Clear()
{
    beginResetModel();
    forgetRows();
    endResetModel();
}

void ListItemsModel::forgetRows()
{
    m_rows.clear();
    m_source.reset();
    m_rowOfKey.clear();
    m_isIndexCurrent = true;
}

void ListItemsModel::setChecked(int index, bool checked)
{
    const int row = rowOf(index);
    m_rows[std::size_t(row)].isChecked = checked;
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
    const Row &row = m_rows[std::size_t(index.row())];
    const bool isFirst = index.column() == 0;
    switch (role) {
    case Qt::DisplayRole:
        return textOf(row, index.column());
    case Qt::DecorationRole:
        return isFirst ? decorationOf(row) : QVariant();
    case Qt::CheckStateRole:
        return isFirst && m_hasCheckboxes ? QVariant(row.isChecked ? Qt::Checked : Qt::Unchecked)
                                          : QVariant();
    case Qt::TextAlignmentRole:
        return alignmentOf(index.column());
    default:
        return {};
    }
}

QVariant ListItemsModel::decorationOf(const Row &row) const
{
    const QIcon icon = iconOf(row);
    return icon.isNull() ? QVariant() : QVariant(icon);
}

bool ListItemsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    bool isSet = false;
    run([&] {
        isSet = role == Qt::CheckStateRole && index.isValid();
        if (!isSet)
            return;
        setChecked(index.row() + 1, value.toInt() == Qt::Checked);
        Q_EMIT ItemCheck(index.row() + 1);
    });
    return isSet;
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
