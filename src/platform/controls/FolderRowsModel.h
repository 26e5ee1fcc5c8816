#pragma once

#include "NameListModel.h"

/// A folder below those that it is in, the root first, and above the folders in it.
class FolderRowsModel : public NameListModel
{
public:
    using NameListModel::NameListModel;

    /// \a path is clean and absolute.
    void setFolder(const QString &path, const QStringList &subfolders);

    /// The row of the folder itself.
    int folderRow() const { return int(m_above.size()) - 1; }
    QString pathAt(int row) const;

    QVariant data(const QModelIndex &index, int role) const override;

private:
    QString iconAt(int row) const;

    QStringList m_above; ///< paths from the root to the folder itself
};
