#pragma once

/// Makes functions of the C library fail in this process, as they do on file systems that lack them, or wait
/// as on slow disks. Its end makes them work again.
class FailingCalls
{
public:
    enum Call { RenameToFree, Rename, Link, Unlink, Sync, Close };

    FailingCalls() = default;
    ~FailingCalls();
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;

    /// The next \a times calls fail with the errno value \a error.
    void fail(Call call, int error, int times = 1000);

    /// Calls of Sync, which other threads may make, wait until this is called with false, or for the end.
    void holdSync(bool isHeld);
    /// How many calls of Sync there were in this process.
    int syncs() const;
};
