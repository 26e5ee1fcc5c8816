#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Calls of the system and of libraries that fail or last, as a test wants them to. The linker leads all
/// calls of the test program to FaultyCalls.cpp. The faults end with this object.
class FaultyCalls
{
public:
    enum Call { Open, Write, Close, Fsync, Fdatasync, Rename, RenameToFree, Link, AllocateDecompressor };

    FaultyCalls();
    ~FaultyCalls();
    FaultyCalls(const FaultyCalls &) = delete;
    FaultyCalls &operator=(const FaultyCalls &) = delete;

    /// From now on \a call fails with \a error, a value of errno.
    void fail(Call call, int error) const;
    /// So many bytes can still be written; then the disk is full.
    void leaveRoom(qint64 bytes) const;
    /// From now on each \a call waits until release(), ten seconds at most; of Open and Rename those of
    /// \a path, or to it, alone.
    void hold(Call call, const QByteArray &path = {}) const;
    void release() const;

    /// The number of calls that wait now.
    int held() const;
    void waitUntilHeld() const;
    /// Some call has waited the whole ten seconds.
    bool isOverdue() const;
    int count(Call call) const;
};
