#include "Folder.h"

#include "FileNames.h"
#include "RuntimeError.h"

#include <QCollator>
#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

struct DirCloser
{
    void operator()(DIR *dir) const { ::closedir(dir); }
};
using OpenFolder = std::unique_ptr<DIR, DirCloser>;

[[noreturn]] void failAt(const QString &path, int code)
{
    throw RuntimeError::fromErrno(code == ENOENT ? ENOTDIR : code, path);
}

OpenFolder open(const QString &path)
{
    if (!path.startsWith(u'/'))
        failAt(path, ENOTDIR);
    OpenFolder folder(::opendir(FileNames::toBytes(path).constData()));
    if (!folder)
        failAt(path, errno);
    return folder;
}

/// Asks the file system only where the entry itself does not say what it is.
bool isFolder(DIR *folder, const dirent &entry)
{
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat state = {};
    return ::fstatat(::dirfd(folder), entry.d_name, &state, 0) == 0 && S_ISDIR(state.st_mode);
}

bool isIncluded(QByteArrayView name, Folder::Hidden hidden)
{
    if (name == QByteArrayView(".") || name == QByteArrayView(".."))
        return false;
    return hidden == Folder::Hidden::Include || !name.startsWith('.');
}

QStringList read(const QString &path, Folder::Hidden hidden, bool folders)
{
    const OpenFolder folder = open(path);
    QStringList names;
    errno = 0;
    while (const dirent *entry = ::readdir(folder.get())) {
        if (isIncluded(entry->d_name, hidden) && isFolder(folder.get(), *entry) == folders)
            names += FileNames::fromBytes(entry->d_name);
        errno = 0; // a broken link has set it
    }
    if (errno != 0)
        failAt(path, errno);
    return names;
}

/// The "C" locale has no order but that of the bytes.
QLocale orderingLocale()
{
    const QLocale locale = QLocale::system();
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

QStringList sorted(QStringList names)
{
    struct Row
    {
        QCollatorSortKey key;
        QString name;
    };
    QCollator collator(orderingLocale());
    collator.setNumericMode(true);
    std::vector<Row> rows;
    rows.reserve(size_t(names.size()));
    for (const QString &name : qAsConst(names))
        rows.push_back({collator.sortKey(name.toCaseFolded()), name});
    std::sort(rows.begin(), rows.end(), [](const Row &a, const Row &b) {
        const int order = a.key.compare(b.key);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    std::transform(rows.begin(), rows.end(), names.begin(), [](const Row &row) { return row.name; });
    return names;
}

} // namespace

QStringList Folder::subfolders(const QString &path, Hidden hidden)
{
    return sorted(read(path, hidden, true));
}

QStringList Folder::files(const QString &path, Hidden hidden)
{
    return sorted(read(path, hidden, false));
}

bool Folder::canOpen(const QString &path)
{
    return ::faccessat(AT_FDCWD, FileNames::toBytes(path).constData(), R_OK | X_OK, AT_EACCESS) == 0;
}

QString Folder::join(const QString &path, const QString &name)
{
    return path.endsWith(u'/') ? path + name : path + u'/' + name;
}
