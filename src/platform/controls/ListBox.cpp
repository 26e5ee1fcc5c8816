#include "ListBox.h"

#include "EventGate.h"
#include "ListBoxRows.h"
#include "PlainTextDelegate.h"
#include "RowDrag.h"
#include "RowKeys.h"
#include "RuntimeError.h"
#include "ShownText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimerEvent>

namespace {

constexpr int leastPause = 50; // milliseconds from one layout of rows in quick succession to the next

/// Rows are as wide as the list, whatever is in the first one, which Qt measures for all.
class RowDelegate : public PlainTextDelegate
{
public:
    using PlainTextDelegate::PlainTextDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {1, rowHeight(option, index)};
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
    addItems({text});
}

void ListBox::addItems(const QStringList &texts)
{
    if (!m_sorted) {
        m_rows->append(texts);
        showSoon();
        return;
    }
    for (const QString &text : texts)
        m_rows->insert(m_rows->sortedPlace(text), text);
}

void ListBox::showSoon()
{
    if (!isVisible() || !m_sinceShown.isValid() || m_sinceShown.hasExpired(leastPause))
        showRows();
    else if (!m_pause.isActive())
        m_pause.start(leastPause, this);
}

void ListBox::showRows()
{
    m_pause.stop();
    m_sinceShown.start();
    m_rows->show();
    if (m_waitingIndex >= 0)
        select(m_waitingIndex);
}

void ListBox::timerEvent(QTimerEvent *event)
{
    bool isOwn = false;
    run([&] {
        isOwn = event->timerId() == m_pause.timerId();
        if (isOwn)
            showRows();
    });
    if (!isOwn)
        QListView::timerEvent(event);
}

void ListBox::RemoveItem(int index)
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    showRows();
    const int selected = ListIndex();
    m_rows->remove(index);
    if (!MultiSelect() && (selected == index || selected < 0)) // Qt selects the neighbour
        clearSelection();
}

void ListBox::Clear()
{
    m_waitingIndex = -1;
    m_rows->clear();
}

int ListBox::ListCount() const
{
    return m_rows->count();
}

QString ListBox::List(int index) const
{
    return index >= 0 && index < ListCount() ? m_rows->text(index) : QString();
}

int ListBox::ListIndex() const
{
    if (m_waitingIndex >= 0)
        return m_waitingIndex;
    if (MultiSelect())
        return currentIndex().row();
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void ListBox::setListIndex(int index)
{
    if (index != -1)
        requireRow(index);
    if (index == ListIndex())
        return;
    if (index < m_rows->rowCount())
        select(index);
    else
        m_waitingIndex = index;
    if (index >= 0)
        Q_EMIT Click();
}

void ListBox::select(int index)
{
    m_waitingIndex = -1;
    const QModelIndex place = m_rows->index(index);
    if (MultiSelect())
        selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
    else if (place.isValid())
        setCurrentIndex(place);
    else
        clearSelection();
}

bool ListBox::MultiSelect() const
{
    return selectionMode() != SingleSelection;
}

void ListBox::setMultiSelect(bool multiSelect)
{
    setSelectionMode(multiSelect ? ExtendedSelection : SingleSelection);
}

bool ListBox::Selected(int index)
{
    requireRow(index);
    showRows();
    return selectionModel()->isSelected(m_rows->index(index));
}

void ListBox::setSelected(int index, bool selected)
{
    requireRow(index);
    showRows();
    const QModelIndex place = m_rows->index(index);
    if (selected && !MultiSelect())
        setCurrentIndex(place);
    else
        selectionModel()->select(place,
                                 selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

void ListBox::mousePressEvent(QMouseEvent *event)
{
    run([&] {
        showRows();
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
        showRows();
        const QWidget *focused = window()->focusWidget();
        Q_EMIT KeyDown(event->key());
        if (!isEnabled() || window()->focusWidget() != focused)
            return; // the handler has waited, and the key is for no control that has the focus since then
        showRows();
        const int before = ListIndex();
        actOnKey(event);
        if (ListIndex() != before)
            Q_EMIT Click();
    });
}

/// The list is not deleted before the drag is over.
void ListBox::startDrag(Qt::DropActions actions)
{
    run([&] { RowDrag::start(*this, actions); });
}

void ListBox::actOnKey(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (!RowKeys::handle(*this, *event))
        QListView::keyPressEvent(event);
}

void ListBox::copy()
{
    QStringList lines;
    for (int i = 0; i < ListCount(); ++i) {
        if (Selected(i))
            lines.append(ShownText::line(List(i)));
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

void ListBox::requireRow(int index) const
{
    if (index < 0 || index >= ListCount())
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}
