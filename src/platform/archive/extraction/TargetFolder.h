#pragma once

#include "ArchiveEntry.h"
#include "FileDescriptor.h"

#include <QHash>
#include <QSet>
#include <memory>

/// The folder that an archive is extracted to. What is below it is reached with the kernel's own guard
/// (openat2): never by "..", never through a symbolic link, whoever made it. Throws FileFailure.
class TargetFolder
{
public:
    using Folder = std::shared_ptr<const FileDescriptor>;

    /// Makes \a path where it is missing.
    explicit TargetFolder(const QByteArray &path);

    /// The folder \a path below the target, made where it is missing; empty for the target itself.
    Folder folder(const QByteArray &path);

    bool exists(const QByteArray &path) const;
    /// The folder \a path was missing until folder() made it.
    bool hasMade(const QByteArray &path) const { return m_made.contains(path); }
    /// Gives the folder \a path the time and the permissions of \a entry, as far as the system lets it.
    void restore(const QByteArray &path, const ArchiveEntry &entry);

private:
    Folder open(const QByteArray &path);
    Folder make(const QByteArray &path);

    Folder m_target;
    QHash<QByteArray, Folder> m_folders; ///< those used last, by their paths
    QSet<QByteArray> m_swept;            ///< those that hold nothing of killed jobs any more
    QSet<QByteArray> m_made;
};
