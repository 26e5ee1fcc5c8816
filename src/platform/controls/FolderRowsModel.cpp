#include "FolderRowsModel.h"

#include "Folder.h"
#include "ThemeIcon.h"

void FolderRowsModel::setFolder(const QString &path, const QStringList &subfolders)
{
    QStringList names = {QStringLiteral("/")};
    names += path.split(u'/', Qt::SkipEmptyParts);
    m_above = {names.first()};
    for (const QString &name : names.sliced(1))
        m_above += Folder::join(m_above.last(), name);
    m_canOpen.clear();
    setNames(names + subfolders);
}

QString FolderRowsModel::pathAt(int row) const
{
    return row <= folderRow() ? m_above.value(row) : Folder::join(m_above.last(), names().value(row));
}

QVariant FolderRowsModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DecorationRole)
        return icon(iconAt(index.row()));
    if (role == DepthRole)
        return qMin(index.row(), folderRow() + 1);
    return NameListModel::data(index, role);
}

QIcon FolderRowsModel::icon(const QString &name) const
{
    const auto known = m_icons.constFind(name);
    return known != m_icons.cend() ? *known : *m_icons.insert(name, ThemeIcon::named(name));
}

QString FolderRowsModel::iconAt(int row) const
{
    if (row <= folderRow())
        return QStringLiteral("folder-open");
    return canOpen(row) ? QStringLiteral("folder") : QStringLiteral("folder-locked");
}

bool FolderRowsModel::canOpen(int row) const
{
    const auto known = m_canOpen.constFind(row);
    return known != m_canOpen.cend() ? *known : *m_canOpen.insert(row, Folder::canOpen(pathAt(row)));
}
