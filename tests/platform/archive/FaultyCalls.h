#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <limits>

/// Calls of the system and of libraries that fail or last, as a test wants them to. The linker leads all
/// calls of the test program to FaultyCalls.cpp. The faults end with this object.
class FaultyCalls
{
public:
    enum Call {
        Open,
        Stat,
        Read,
        Write,
        CopyRange,
        Close,
        Fsync,
        Fdatasync,
        Rename,
        RenameToFree,
        Link,
        AllocateDecompressor
    };

    static constexpr int always = std::numeric_limits<int>::max();

    FaultyCalls();
    ~FaultyCalls();
    FaultyCalls(const FaultyCalls &) = delete;
    FaultyCalls &operator=(const FaultyCalls &) = delete;

    /// The next \a times that \a call is made it fails with \a error, a value of errno.
    void fail(Call call, int error, int times = always) const;
    /// So many bytes can still be written; then the disk is full.
    void leaveRoom(qint64 bytes) const;
    /// From now on each \a call waits until release(), ten seconds at most; of Open, Stat, Close and Rename
    /// those of \a path, or to it, alone.
    void hold(Call call, const QByteArray &path = {}) const;
    void release() const;

    /// The number of calls that wait now.
    int held() const;
    void waitUntilHeld() const;
    /// Some call has waited the whole ten seconds.
    bool isOverdue() const;
    int count(Call call) const;
};
