#include "FtpServerFolder.h"

#include <QByteArrayList>
#include <algorithm>
#include <dirent.h>
#include <sys/stat.h>

namespace {

bool isFolder(const QByteArray &path)
{
    struct stat state = {};
    return ::stat(path.constData(), &state) == 0 && S_ISDIR(state.st_mode);
}

qint64 sizeOf(const QByteArray &path)
{
    struct stat state = {};
    return ::lstat(path.constData(), &state) == 0 ? qint64(state.st_size) : 0;
}

} // namespace

bool FtpServerFolder::enter(const QByteArray &name)
{
    if (!isFolder(path(name)))
        return false;
    m_current = absolute(name);
    return true;
}

bool FtpServerFolder::isFile(const QByteArray &name) const
{
    struct stat state = {};
    return ::stat(path(name).constData(), &state) == 0 && S_ISREG(state.st_mode);
}

QByteArray FtpServerFolder::machineList(bool dots) const
{
    QByteArray lines;
    for (const QByteArray &name : names(dots)) {
        const QByteArray type = name == "."            ? "cdir"
                                : name == ".."         ? "pdir"
                                : isFolder(path(name)) ? "dir"
                                                       : "file";
        lines += "type=" + type + ";size=" + QByteArray::number(sizeOf(path(name))) +
                 ";modify=20260101000000; " + name + "\r\n";
    }
    return lines;
}

QByteArray FtpServerFolder::list(bool dots) const
{
    QByteArray lines;
    for (const QByteArray &name : names(dots)) {
        lines += QByteArray(isFolder(path(name)) ? "drwxr-xr-x" : "-rw-r--r--") + "   1 owner    group    " +
                 QByteArray::number(sizeOf(path(name))).rightJustified(12) + " Jan  1  2026 " + name + "\r\n";
    }
    return lines;
}

QByteArray FtpServerFolder::absolute(const QByteArray &name) const
{
    QByteArrayList parts;
    for (const QByteArray &part : (name.startsWith('/') ? name : m_current + '/' + name).split('/')) {
        if (part == ".." && !parts.isEmpty())
            parts.removeLast();
        else if (!part.isEmpty() && part != "." && part != "..")
            parts.append(part);
    }
    return '/' + parts.join('/');
}

QByteArrayList FtpServerFolder::names(bool dots) const
{
    QByteArrayList names;
    DIR *folder = ::opendir(path(".").constData());
    while (const dirent *entry = folder ? ::readdir(folder) : nullptr) {
        const QByteArray name = entry->d_name;
        if (dots || (name != "." && name != ".."))
            names.append(name);
    }
    if (folder)
        ::closedir(folder);
    std::sort(names.begin(), names.end());
    return names;
}
