#pragma once

#include <cerrno>

/// What a call of the system met: a value of errno. The jobs make their result of it.
struct FileFailure
{
    int error;

    explicit FileFailure(int code = errno)
        : error(code)
    {}

    bool isFullDisk() const { return error == ENOSPC || error == EDQUOT; }
};
