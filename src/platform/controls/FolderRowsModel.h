#pragma once

#include "NameListModel.h"

#include <QHash>
#include <QIcon>

/// A folder below those that it is in, the root first, and above the folders in it. Whether a row can be
/// opened is asked when its icon is first shown, and not again until the next folder.
class FolderRowsModel : public NameListModel
{
public:
    /// How many steps a row is moved to the right.
    static constexpr int DepthRole = Qt::UserRole;

    using NameListModel::NameListModel;

    /// \a path is clean and absolute.
    void setFolder(const QString &path, const QStringList &subfolders);

    /// The row of the folder itself.
    int folderRow() const { return int(m_above.size()) - 1; }
    QString pathAt(int row) const;

    QVariant data(const QModelIndex &index, int role) const override;

    /// The icons are looked up again, for a palette that has turned.
    void forgetIcons() { m_icons.clear(); }

private:
    QIcon icon(const QString &name) const;
    QString iconAt(int row) const;
    bool canOpen(int row) const;

    QStringList m_above;                ///< paths from the root to the folder itself
    mutable QHash<int, bool> m_canOpen; ///< by row
    mutable QHash<QString, QIcon> m_icons;
};
