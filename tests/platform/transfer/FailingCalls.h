#pragma once

/// Makes functions of the C library fail in this process, as they do on file systems that lack them. Its end
/// makes them work again.
class FailingCalls
{
public:
    enum Call { RenameToFree, Rename, Link, Unlink };

    FailingCalls() = default;
    ~FailingCalls();
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;

    /// The next \a times calls fail with the errno value \a error.
    void fail(Call call, int error, int times = 1000);
};
