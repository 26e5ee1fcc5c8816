#include "SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>

namespace {

bool mountOn(const QByteArray &folder, qint64 bytes)
{
    const QByteArray size = "size=" + QByteArray::number(bytes);
    return ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", folder.constData(), "tmpfs", 0, size.constData()) == 0;
}

} // namespace

SmallDisk::SmallDisk(qint64 bytes)
    : m_isMounted(mountOn(m_folder.path().toUtf8(), bytes))
{}

SmallDisk::~SmallDisk()
{
    if (m_isMounted)
        ::umount2(m_folder.path().toUtf8().constData(), MNT_DETACH);
}
