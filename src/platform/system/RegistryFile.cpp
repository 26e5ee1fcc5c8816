#include "RegistryFile.h"

#include "FileLock.h"
#include "Files.h"
#include "RegistryJson.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace {

RegistryResult resultOf(const FileLock &lock)
{
    switch (lock.error()) {
    case 0:
        return RegistryResult::Ok;
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOENT: // the folder could not be made
        return RegistryResult::NoRights;
    default:
        return RegistryResult::WriteFault;
    }
}

} // namespace

RegistryFile::RegistryFile(const QString &path)
    : m_path(path)
{}

RegistryResult RegistryFile::load(RegistryKey &root, QByteArray &bytes) const
{
    try {
        bytes = Files::read(m_path);
    } catch (const RuntimeError &error) {
        switch (error.number()) {
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            root = {};
            return RegistryResult::Ok;
        case ErrorNumber::PermissionDenied:
            return RegistryResult::NoRights;
        default:
            return RegistryResult::Unreadable;
        }
    }
    std::optional<RegistryKey> tree = RegistryJson::fromBytes(bytes);
    if (!tree)
        return RegistryResult::Unreadable;
    root = std::move(*tree);
    return RegistryResult::Ok;
}

RegistryResult RegistryFile::store(const QByteArray &bytes) const
{
    try {
        Files::writeLocked(m_path, bytes);
        return RegistryResult::Ok;
    } catch (const RuntimeError &error) {
        return error.number() == ErrorNumber::PermissionDenied ? RegistryResult::NoRights
                                                               : RegistryResult::WriteFault;
    }
}

RegistryResult RegistryFile::read(RegistryKey &root) const
{
    QByteArray bytes;
    return load(root, bytes);
}

RegistryResult RegistryFile::change(const Edit &edit) const
{
    QDir().mkpath(QFileInfo(m_path).path());
    const FileLock lock(m_path + QStringLiteral(".lock"));
    if (!lock.isHeld())
        return resultOf(lock);

    RegistryKey root;
    QByteArray before;
    RegistryResult result = load(root, before);
    if (result == RegistryResult::Ok)
        result = edit(root);
    if (result != RegistryResult::Ok)
        return result;
    const QByteArray after = RegistryJson::toBytes(root);
    return after == before ? RegistryResult::Ok : store(after);
}
