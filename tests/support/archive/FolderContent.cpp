#include "FolderContent.h"

#include <QFile>
#include <filesystem>
#include <sys/stat.h>

FolderContent::Nodes FolderContent::of(const QByteArray &folder)
{
    Nodes nodes;
    const std::filesystem::path root(folder.toStdString());
    if (!std::filesystem::exists(root))
        return nodes;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(root)) {
        const QByteArray path = QByteArray::fromStdString(entry.path().string());
        struct stat state = {};
        ::lstat(path.constData(), &state);
        Node node{state.st_mode, state.st_mtime, {}};
        if (S_ISLNK(state.st_mode))
            node.bytes = QByteArray::fromStdString(std::filesystem::read_symlink(entry.path()).string());
        else if (S_ISREG(state.st_mode))
            node.bytes = read(path);
        nodes.insert(path.sliced(folder.size() + 1), node);
    }
    return nodes;
}

QMap<QByteArray, QByteArray> FolderContent::filesOf(const QByteArray &folder)
{
    QMap<QByteArray, QByteArray> files;
    const Nodes nodes = of(folder);
    for (auto node = nodes.cbegin(); node != nodes.cend(); ++node) {
        if (S_ISREG(node->mode))
            files.insert(node.key(), node->bytes);
    }
    return files;
}

QByteArray FolderContent::read(const QByteArray &path)
{
    // Not by QFile::decodeName, which loses names that are not UTF-8.
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(path.constData(), "rb"),
                                                                std::fclose);
    QFile opened;
    if (!file || !opened.open(file.get(), QIODevice::ReadOnly))
        return {};
    return opened.readAll();
}
