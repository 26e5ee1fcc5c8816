#include "FolderTreeModel.h"

#include "Folder.h"
#include "RuntimeError.h"
#include "ThemeIcon.h"
#include "Volume.h"
#include "VolumeIcon.h"

#include <QDir>
#include <algorithm>

struct FolderTreeModel::Node
{
    Node *parent;
    int row;
    QString path;
    QString name;
    QString icon;
    bool isFolder = true;
    bool isRead = false;
    Nodes children = {};
};

namespace {

bool isBelow(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

} // namespace

FolderTreeModel::FolderTreeModel(const QString &root, Content content, QObject *parent)
    : QAbstractItemModel(parent)
    , m_content(content)
{
    const auto add = [this](const QString &path, const QString &name, const QString &icon) {
        m_roots.push_back(std::make_unique<Node>(Node{nullptr, int(m_roots.size()), path, name, icon}));
    };
    if (!root.isEmpty())
        add(QDir::cleanPath(root), QDir::cleanPath(root), QStringLiteral("folder"));
    else
        for (const Volume &volume : Volume::all())
            add(volume.path, volume.name, VolumeIcon::nameOf(volume.kind));
}

FolderTreeModel::~FolderTreeModel() = default;

FolderTreeModel::Node *FolderTreeModel::nodeOf(const QModelIndex &index)
{
    return static_cast<Node *>(index.internalPointer());
}

const FolderTreeModel::Nodes &FolderTreeModel::childrenOf(const QModelIndex &parent) const
{
    return parent.isValid() ? nodeOf(parent)->children : m_roots;
}

QString FolderTreeModel::pathAt(const QModelIndex &index) const
{
    return index.isValid() ? nodeOf(index)->path : QString();
}

QModelIndex FolderTreeModel::indexOf(const QString &path)
{
    const QString clean = QDir::cleanPath(path);
    QModelIndex place = rootAbove(clean);
    if (!place.isValid())
        return {};
    const QString below = clean.sliced(pathAt(place).size());
    for (const QString &name : below.split(u'/', Qt::SkipEmptyParts)) {
        place = child(place, name);
        if (!place.isValid())
            return {};
    }
    return place;
}

/// The one that is nearest to \a path.
QModelIndex FolderTreeModel::rootAbove(const QString &path) const
{
    const Node *nearest = nullptr;
    for (const auto &root : m_roots) {
        if (isBelow(path, root->path) && (!nearest || root->path.size() > nearest->path.size()))
            nearest = root.get();
    }
    return nearest ? index(nearest->row, 0) : QModelIndex();
}

QModelIndex FolderTreeModel::child(const QModelIndex &parent, const QString &name)
{
    fetchMore(parent);
    const Nodes &children = childrenOf(parent);
    for (const auto &each : children) {
        if (each->name == name)
            return index(each->row, 0, parent);
    }
    const QString path = Folder::join(pathAt(parent), name);
    if (!Folder::canOpen(path))
        return {};
    Nodes found;
    found.push_back(std::make_unique<Node>(Node{nodeOf(parent), 0, path, name, QStringLiteral("folder")}));
    append(parent, std::move(found));
    return index(int(children.size()) - 1, 0, parent);
}

void FolderTreeModel::append(const QModelIndex &parent, Nodes nodes)
{
    if (nodes.empty())
        return;
    Nodes &children = nodeOf(parent)->children;
    const int first = int(children.size());
    beginInsertRows(parent, first, first + int(nodes.size()) - 1);
    for (auto &node : nodes) {
        node->row = int(children.size());
        children.push_back(std::move(node));
    }
    endInsertRows();
}

FolderTreeModel::Nodes FolderTreeModel::read(Node &folder) const
{
    Nodes nodes;
    const auto add = [&](const QStringList &names, bool isFolder) {
        for (const QString &name : names)
            nodes.push_back(std::make_unique<Node>(
                Node{&folder, 0, Folder::join(folder.path, name), name,
                     isFolder ? QStringLiteral("folder") : QStringLiteral("text-x-generic"), isFolder}));
    };
    try {
        add(Folder::subfolders(folder.path, Folder::Hidden::Skip), true);
        if (m_content == Content::FoldersAndFiles)
            add(Folder::files(folder.path, Folder::Hidden::Skip), false);
    } catch (const RuntimeError &) {
        return {};
    }
    return nodes;
}

QModelIndex FolderTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    const Nodes &children = childrenOf(parent);
    if (row < 0 || row >= int(children.size()) || column != 0)
        return {};
    return createIndex(row, column, children[std::size_t(row)].get());
}

QModelIndex FolderTreeModel::parent(const QModelIndex &index) const
{
    Node *above = index.isValid() ? nodeOf(index)->parent : nullptr;
    return above ? createIndex(above->row, 0, above) : QModelIndex();
}

int FolderTreeModel::rowCount(const QModelIndex &parent) const
{
    return int(childrenOf(parent).size());
}

/// A folder that has not been read yet can be opened.
bool FolderTreeModel::hasChildren(const QModelIndex &parent) const
{
    return canFetchMore(parent) || rowCount(parent) > 0;
}

bool FolderTreeModel::canFetchMore(const QModelIndex &parent) const
{
    return parent.isValid() && nodeOf(parent)->isFolder && !nodeOf(parent)->isRead;
}

void FolderTreeModel::fetchMore(const QModelIndex &parent)
{
    if (!canFetchMore(parent))
        return;
    Node &folder = *nodeOf(parent);
    folder.isRead = true;
    append(parent, read(folder));
}

QVariant FolderTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &node = *nodeOf(index);
    if (role == Qt::DisplayRole)
        return node.name;
    return role == Qt::DecorationRole ? QVariant(ThemeIcon::named(node.icon)) : QVariant();
}
