#pragma once

#include <QtGlobal>

/// While it exists, regular files of this process take \a bytes more and then no others: writing fails with
/// an errno value, as on a disk that is full or a quota that is used up.
class FailingWrites
{
public:
    FailingWrites(int error, qint64 bytes);
    ~FailingWrites();
    FailingWrites(const FailingWrites &) = delete;
    FailingWrites &operator=(const FailingWrites &) = delete;
};
