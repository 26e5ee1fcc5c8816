#pragma once

#include <cerrno>
#include <system_error>

/// What a call of the system met: a value of errno. The jobs make their result of it.
struct FileFailure
{
    int error;

    explicit FileFailure(int code = errno)
        : error(code)
    {}

    bool isFullDisk() const { return error == ENOSPC || error == EDQUOT; }

    /// Runs \a step and returns its result; a std::system_error that it throws becomes a FileFailure.
    template<class Step>
    static auto translated(Step step)
    {
        try {
            return step();
        } catch (const std::system_error &failure) {
            throw FileFailure(failure.code().value());
        }
    }
};
