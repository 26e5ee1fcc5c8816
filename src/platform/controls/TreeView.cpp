#include "TreeView.h"

#include "EventGate.h"
#include "PlainTextDelegate.h"
#include "RowKeys.h"
#include "RuntimeError.h"

#include <QMouseEvent>
#include <QStandardItemModel>

namespace {

constexpr int keyRole = Qt::UserRole;

} // namespace

TreeView::TreeView(QWidget *parent)
    : QTreeView(parent)
    , m_model(new QStandardItemModel(this))
{
    setItemDelegate(new PlainTextDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setModel(m_model);
}

void TreeView::Add(const TreeNode &node)
{
    if (m_nodes.contains(node.Key))
        throw RuntimeError(ErrorNumber::KeyNotUnique, {}, node.Key);
    QStandardItem &parent = node.Parent.isEmpty() ? *m_model->invisibleRootItem() : this->node(node.Parent);
    auto *item = new QStandardItem(node.Image, node.Text);
    item->setData(node.Key, keyRole);
    parent.appendRow(item);
    m_nodes.insert(node.Key, item);
}

void TreeView::Clear()
{
    m_nodes.clear();
    m_model->clear();
}

QString TreeView::Text(const QString &key) const
{
    return node(key).text();
}

QString TreeView::ParentKey(const QString &key) const
{
    const QStandardItem *parent = node(key).parent();
    if (!parent)
        throw RuntimeError(ErrorNumber::ObjectNotSet);
    return parent->data(keyRole).toString();
}

bool TreeView::Expanded(const QString &key) const
{
    return isExpanded(place(key));
}

void TreeView::setExpanded(const QString &key, bool expanded)
{
    QTreeView::setExpanded(place(key), expanded);
}

void TreeView::EnsureVisible(const QString &key)
{
    scrollTo(place(key)); // opens the ancestors too
}

QString TreeView::SelectedItem() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? QString() : selected.constFirst().data(keyRole).toString();
}

void TreeView::setSelectedItem(const QString &key)
{
    setCurrentIndex(place(key));
}

void TreeView::mousePressEvent(QMouseEvent *event)
{
    run([&] {
        m_selectedAtPress = SelectedItem();
        QTreeView::mousePressEvent(event);
    });
}

void TreeView::mouseReleaseEvent(QMouseEvent *event)
{
    run([&] {
        QTreeView::mouseReleaseEvent(event);
        const QPoint point = event->position().toPoint();
        const bool isOnNode = visualRect(indexAt(point)).contains(point); // not on its arrow
        const QString selected = SelectedItem();
        const bool isClick = event->button() == Qt::LeftButton && (isOnNode || selected != m_selectedAtPress);
        if (isClick && !selected.isEmpty())
            Q_EMIT NodeClick(selected);
    });
}

void TreeView::keyPressEvent(QKeyEvent *event)
{
    run([&] {
        const QString before = SelectedItem();
        if (!RowKeys::handle(*this, *event))
            QTreeView::keyPressEvent(event);
        const QString selected = SelectedItem();
        if (selected != before && !selected.isEmpty())
            Q_EMIT NodeClick(selected);
    });
}

QStandardItem &TreeView::node(const QString &key) const
{
    if (QStandardItem *found = m_nodes.value(key))
        return *found;
    throw RuntimeError(ErrorNumber::ElementNotFound, {}, key);
}

QModelIndex TreeView::place(const QString &key) const
{
    return node(key).index();
}
