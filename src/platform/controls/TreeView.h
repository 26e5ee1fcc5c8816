#pragma once

#include "TreeNode.h"

#include <QHash>
#include <QTreeView>

class QStandardItem;
class QStandardItemModel;

/// A tree of nodes that are known by their keys. A key that no node has is RuntimeError 35601.
///
/// Typing finds a node among those in view; the arrow keys open and close nodes.
class TreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit TreeView(QWidget *parent = nullptr);

    /// Adds \a node as its parent's last one. Throws RuntimeError 35602 where a node has the key already.
    void Add(const TreeNode &node);
    void Clear();

    int Count() const { return int(m_nodes.size()); }
    QString Text(const QString &key) const;
    /// Throws RuntimeError 91 for a root.
    QString ParentKey(const QString &key) const;

    bool Expanded(const QString &key) const;
    void setExpanded(const QString &key, bool expanded);
    /// Opens the node's ancestors and scrolls to it.
    void EnsureVisible(const QString &key);

    /// The key of the selected node; empty where none is selected. Selecting by code is no NodeClick.
    QString SelectedItem() const;
    void setSelectedItem(const QString &key);

Q_SIGNALS:
    /// A node was clicked, or another one was selected by mouse or key.
    void NodeClick(const QString &key);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QStandardItem &node(const QString &key) const;
    QModelIndex place(const QString &key) const;

    QStandardItemModel *m_model;
    QHash<QString, QStandardItem *> m_nodes;
    QString m_selectedAtPress;
};
