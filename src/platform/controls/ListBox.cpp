#include "ListBox.h"

#include "EventGate.h"
#include "ListBoxRows.h"
#include "PlainTextDelegate.h"
#include "RowKeys.h"
#include "RuntimeError.h"
#include "ShownText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

namespace {

/// Rows are as wide as the list, whatever is in the first one, which Qt measures for all.
class RowDelegate : public PlainTextDelegate
{
public:
    using PlainTextDelegate::PlainTextDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {1, PlainTextDelegate::sizeHint(option, index).height()};
    }
};

} // namespace

ListBox::ListBox(QWidget *parent)
    : QListView(parent)
    , m_rows(new ListBoxRows(this))
{
    setItemDelegate(new RowDelegate(this));
    setUniformItemSizes(true);
    setModel(m_rows);
}

void ListBox::AddItem(const QString &text)
{
    m_rows->insert(m_sorted ? m_rows->sortedPlace(text) : ListCount(), {text});
}

void ListBox::addItems(const QStringList &texts)
{
    if (!m_sorted) {
        m_rows->insert(ListCount(), texts);
        return;
    }
    for (const QString &text : texts)
        AddItem(text);
}

void ListBox::RemoveItem(int index)
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const int selected = ListIndex();
    m_rows->remove(index);
    if (!MultiSelect() && (selected == index || selected < 0)) // Qt selects the neighbour
        clearSelection();
}

void ListBox::Clear()
{
    m_rows->clear();
}

int ListBox::ListCount() const
{
    return m_rows->rowCount();
}

QString ListBox::List(int index) const
{
    return index >= 0 && index < ListCount() ? m_rows->text(index) : QString();
}

int ListBox::ListIndex() const
{
    if (MultiSelect())
        return currentIndex().row();
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void ListBox::setListIndex(int index)
{
    const QModelIndex place = index == -1 ? QModelIndex() : row(index);
    if (index == ListIndex())
        return;
    if (MultiSelect())
        selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
    else if (place.isValid())
        setCurrentIndex(place);
    else
        clearSelection();
    if (place.isValid())
        Q_EMIT Click();
}

bool ListBox::MultiSelect() const
{
    return selectionMode() != SingleSelection;
}

void ListBox::setMultiSelect(bool multiSelect)
{
    setSelectionMode(multiSelect ? ExtendedSelection : SingleSelection);
}

bool ListBox::Selected(int index) const
{
    return selectionModel()->isSelected(row(index));
}

void ListBox::setSelected(int index, bool selected)
{
    const QModelIndex place = row(index);
    if (selected && !MultiSelect())
        setCurrentIndex(place);
    else
        selectionModel()->select(place,
                                 selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

void ListBox::mousePressEvent(QMouseEvent *event)
{
    run([&] {
        m_indexAtPress = ListIndex();
        QListView::mousePressEvent(event);
    });
}

void ListBox::mouseReleaseEvent(QMouseEvent *event)
{
    run([&] {
        QListView::mouseReleaseEvent(event);
        const bool isOnRow = indexAt(event->position().toPoint()).isValid();
        if (event->button() == Qt::LeftButton && (isOnRow || ListIndex() != m_indexAtPress))
            Q_EMIT Click();
    });
}

void ListBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    run([&] {
        QListView::mouseDoubleClickEvent(event);
        if (event->button() == Qt::LeftButton)
            Q_EMIT DblClick();
    });
}

void ListBox::keyPressEvent(QKeyEvent *event)
{
    run([&] {
        Q_EMIT KeyDown(event->key());
        const int before = ListIndex();
        actOnKey(event);
        if (ListIndex() != before)
            Q_EMIT Click();
    });
}

void ListBox::actOnKey(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (!RowKeys::beginSelection(*this, *event))
        QListView::keyPressEvent(event);
}

void ListBox::copy() const
{
    QStringList lines;
    for (int i = 0; i < ListCount(); ++i) {
        if (Selected(i))
            lines.append(shownText(List(i)));
    }
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex &index,
                                                              const QEvent *event) const
{
    if (MultiSelect())
        return QListView::selectionCommand(index, event);
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

QModelIndex ListBox::row(int index) const
{
    if (index >= 0 && index < ListCount())
        return m_rows->index(index);
    throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}
