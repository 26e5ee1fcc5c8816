#pragma once

#include <QAbstractItemModel>
#include <memory>
#include <vector>

/// The folders of the disks as a tree. A folder is read when it is opened first, and not watched; one that
/// may not be read is empty. Hidden folders are shown only where a path leads through them. Names and paths
/// are as FileNames has them.
class FolderTreeModel : public QAbstractItemModel
{
public:
    enum class Content { Folders, FoldersAndFiles };

    /// Begins with the folder \a root alone, or with all volumes where it is empty.
    FolderTreeModel(const QString &root, Content content, QObject *parent = nullptr);
    ~FolderTreeModel() override;

    /// Empty where \a index is not valid.
    QString pathAt(const QModelIndex &index) const;
    /// Reads the folders on the way to the absolute \a path. What has been made since a folder was read is
    /// found too. Not valid where \a path does not exist or is not below what the tree begins with.
    QModelIndex indexOf(const QString &path);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    bool hasChildren(const QModelIndex &parent = {}) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    struct Node;
    using Nodes = std::vector<std::unique_ptr<Node>>;

    static Node *nodeOf(const QModelIndex &index);
    const Nodes &childrenOf(const QModelIndex &parent) const;
    QModelIndex rootAbove(const QString &path) const;
    QModelIndex child(const QModelIndex &parent, const QString &name);
    void append(const QModelIndex &parent, Nodes nodes);
    Nodes read(Node &folder) const;

    Content m_content;
    Nodes m_roots;
};
