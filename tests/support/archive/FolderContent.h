#pragma once

#include <QByteArray>
#include <QMap>
#include <sys/types.h>

/// What is in a folder and below it.
namespace FolderContent {

struct Node
{
    mode_t mode = 0;
    time_t modified = 0;
    QByteArray bytes; ///< of a file, or the target of a link

    friend bool operator==(const Node &, const Node &) = default;
};

using Nodes = QMap<QByteArray, Node>;

/// By the paths below \a folder; nothing where it does not exist.
Nodes of(const QByteArray &folder);

/// The files alone, with their bytes.
QMap<QByteArray, QByteArray> filesOf(const QByteArray &folder);

QByteArray read(const QByteArray &path);

} // namespace FolderContent
