#pragma once

#include <QByteArray>
#include <memory>
#include <optional>
#include <sys/types.h>
#include <vector>

/// A file or folder that is to be in the archive.
struct SourceFile
{
    QByteArray path;
    QByteArray name; ///< of the entry; a folder's ends in "/"
    qint64 size = 0;
    qint64 modified = 0; ///< seconds since 1970
    mode_t mode = 0;
    dev_t device = 0;
    ino_t inode = 0;
    bool isFolder = false;
    std::optional<quint64> replaced; ///< the index of the entry that it replaces

    bool isSameFile(const SourceFile &other) const { return device == other.device && inode == other.inode; }
};

/// Those of a job. They are there as long as some thread of it is at work.
using SourceFiles = std::shared_ptr<const std::vector<SourceFile>>;
