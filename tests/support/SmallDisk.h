#pragma once

#include "ScratchFolder.h"

/// A file system of its own with room for \a bytes, for tests about full disks. It is mounted where only this
/// process sees it; without the right to do so there is none.
class SmallDisk
{
public:
    explicit SmallDisk(qint64 bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return m_isMounted; }
    QString path() const { return m_folder.path(); }

private:
    ScratchFolder m_folder;
    bool m_isMounted;
};
