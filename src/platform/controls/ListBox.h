#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QListView>

class ListBoxRows;

/// A list of one column. Rows are numbered from 0.
///
/// One row at most is selected, and no click or key takes the selection back; with MultiSelect rows are
/// selected as in a file manager, and Ctrl+A selects all. Typing finds a row; Ctrl+C copies the selected rows
/// as lines, as they are shown.
///
/// Rows that are added in quick succession appear together, some milliseconds later, so that a fast log need
/// not wait for the layout of all its rows with each line. All functions here know them at once.
class ListBox : public QListView
{
    Q_OBJECT

public:
    explicit ListBox(QWidget *parent = nullptr);

    /// Adds behind the last row, or in its place where the list is sorted.
    void AddItem(const QString &text);
    /// Adds many rows at once.
    void addItems(const QStringList &texts);
    /// Where the row was the selected one, none is afterwards. Throws RuntimeError 5 where there is no such
    /// row.
    void RemoveItem(int index);
    void Clear();

    int ListCount() const;
    /// The text of a row; empty where there is no such row.
    QString List(int index) const;
    /// The selected row's text; empty where none is selected.
    QString Text() const { return List(ListIndex()); }

    /// The selected row, -1 for none; with MultiSelect the row that has the focus. Setting another row is a
    /// Click. Throws RuntimeError 380 where there is no such row; the selection is then as before.
    int ListIndex() const;
    void setListIndex(int index);

    /// Rows that are added come in alphabetical order without regard to case; set while the list is empty.
    bool Sorted() const { return m_sorted; }
    void setSorted(bool sorted) { m_sorted = sorted; }

    bool MultiSelect() const;
    void setMultiSelect(bool multiSelect);
    /// Throws RuntimeError 380 where there is no such row.
    bool Selected(int index);
    void setSelected(int index, bool selected);

Q_SIGNALS:
    /// A row was clicked, or another one became selected by mouse, key or code.
    void Click();
    void DblClick();
    /// A key (Qt::Key) was pressed; the list has not acted on it yet.
    void KeyDown(int key);

protected:
    void timerEvent(QTimerEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void showSoon();
    void showRows();
    void select(int index);
    void actOnKey(QKeyEvent *event);
    void copy();
    void requireRow(int index) const;

    ListBoxRows *m_rows;
    QElapsedTimer m_sinceShown;
    QBasicTimer m_pause;
    int m_waitingIndex = -1; // to be selected with the rows that wait
    int m_indexAtPress = -1;
    bool m_sorted = false;
};
