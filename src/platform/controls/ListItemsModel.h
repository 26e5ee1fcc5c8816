#pragma once

#include "ColumnHeader.h"
#include "ListItem.h"
#include "ListRows.h"

#include <QAbstractTableModel>
#include <QHash>
#include <memory>
#include <vector>

/// The rows and columns of a list view. Both are numbered from 1; a number without a row or column is
/// RuntimeError 35600, a key without a row 35601.
class ListItemsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int Count() const { return int(m_rows.size()); }
    ListItem Item(int index) const;
    ListItem Item(const QString &key) const { return Item(IndexOf(key)); }
    /// The number of the row with \a key.
    int IndexOf(const QString &key) const;
    /// These read a part of the row alone.
    QString key(int index) const;
    bool isChecked(int index) const;

    /// Adds behind the last row. Throws RuntimeError 35602 where a row has the key already.
    void Add(ListItem item);
    /// Adds many rows at once, or none where one's key is not unique (RuntimeError 35602).
    void addItems(std::vector<ListItem> items);
    /// Replaces all rows by those of \a rows, none of them checked. They are read when they are shown or
    /// asked for.
    void setRows(std::unique_ptr<const ListRows> rows) { setRows(m_headers, std::move(rows)); }
    /// The same, and replaces all columns.
    void setRows(const QList<ColumnHeader> &headers, std::unique_ptr<const ListRows> rows);
    void Remove(int index);
    void Remove(const QString &key) { Remove(IndexOf(key)); }
    /// Removes all rows; the columns stay.
    void Clear();
    void setChecked(int index, bool checked);

    void setColumnHeaders(const QList<ColumnHeader> &headers);
    const ColumnHeader &columnHeader(int index) const;
    bool hasCheckboxes() const { return m_hasCheckboxes; }
    void setCheckboxes(bool shown);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    /// The user checked or unchecked the row.
    void ItemCheck(int index);

private:
    struct Row
    {
        std::unique_ptr<ListItem> added; ///< null where the row is one of m_source
        int source = 0;                  ///< which one
        bool isChecked = false;
    };

    void forgetRows();
    void indexKeys(const std::vector<ListItem> &items, int firstRow);
    void updateIndex() const;
    int rowOf(int index) const;
    const Row &row(int index) const { return m_rows[std::size_t(rowOf(index))]; }
    QString keyOf(const Row &row) const;
    QString textOf(const Row &row, int column) const;
    QIcon iconOf(const Row &row) const;
    QVariant decorationOf(const Row &row) const;
    QVariant alignmentOf(int column) const;

    std::vector<Row> m_rows;
    std::unique_ptr<const ListRows> m_source;
    QList<ColumnHeader> m_headers;
    mutable QHash<QString, int> m_rowOfKey; // brought up to date when a key is used
    mutable bool m_isIndexCurrent = true;
    bool m_hasCheckboxes = false;
};
