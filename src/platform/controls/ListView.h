#pragma once

#include "ListItemsModel.h"

#include <QItemSelectionModel>
#include <QStackedWidget>

class QAbstractItemView;
class QListView;
class QTreeView;

/// A list of rows with an icon, a text and columns, shown as a table or as icons. Rows and columns are
/// numbered from 1 and keep the order in which they were added.
///
/// Typing finds a row, Space checks it, Ctrl+A selects all where several may be selected, Ctrl+C copies the
/// selected rows as they are shown, one a line, their columns separated by tabs.
class ListView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr);

    ListItemsModel &ListItems() { return *m_items; }
    const ListItemsModel &ListItems() const { return *m_items; }

    /// Replaces all columns; they are as wide as their headers say until the user drags them. The rows stay.
    void setColumnHeaders(const QList<ColumnHeader> &headers);
    /// The same, and replaces all rows as ListItemsModel::setRows does.
    void setRows(const QList<ColumnHeader> &headers, std::unique_ptr<const ListRows> rows);
    /// Throws RuntimeError 35600 where there is no such column.
    const ColumnHeader &ColumnHeaders(int index) const { return m_items->columnHeader(index); }

    /// 0 large icons, 1 small icons, 2 a list, 3 (at first) a table of all columns. Throws RuntimeError 380
    /// for another number; the view is then as before.
    int View() const { return m_view; }
    void setView(int view);

    bool Checkboxes() const { return m_items->hasCheckboxes(); }
    void setCheckboxes(bool shown);

    bool MultiSelect() const;
    void setMultiSelect(bool multiSelect);

    bool hasSelection() const { return m_selection->hasSelection(); }
    /// The selected row; with MultiSelect the first one. Throws RuntimeError 91 where none is selected.
    ListItem SelectedItem() const;
    /// Throw RuntimeError 35600 where there is no such row.
    bool Selected(int index) const;
    void setSelected(int index, bool selected);
    void selectAll();
    void invertSelection();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void ItemClick(int index);
    /// A double click, on a row or beside it.
    void DblClick();
    /// A mouse button was pressed, on a row or beside it; the list has not acted on it yet.
    void MouseDown(Qt::MouseButton button);
    /// The user checked or unchecked the row.
    void ItemCheck(int index);
    void ColumnClick(int index);
    /// A key (Qt::Key) was pressed; the list has not acted on it yet.
    void KeyDown(int key);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildTable();
    void buildIcons();
    void share(QAbstractItemView &pane);
    void applyWidths(const QList<ColumnHeader> &headers);
    void arrangeIcons();
    QAbstractItemView &pane() const;
    bool actOnKey(const QKeyEvent &event);
    bool toggleCheck();
    void copy() const;
    QString line(const ListItem &item) const;
    std::vector<bool> selectedRows() const;

    ListItemsModel *m_items;
    QItemSelectionModel *m_selection;
    QTreeView *m_table;
    QListView *m_icons;
    int m_view = 3;
};
