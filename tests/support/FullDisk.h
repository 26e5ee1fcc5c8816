#pragma once

#include <csignal>
#include <sys/resource.h>

/// While it exists no file of this process grows beyond \a bytes, as on a disk that has just filled up.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        m_handler = ::signal(SIGXFSZ, SIG_IGN);
        const rlimit tight = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        ::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_before = {};
    sighandler_t m_handler = SIG_DFL;
};
