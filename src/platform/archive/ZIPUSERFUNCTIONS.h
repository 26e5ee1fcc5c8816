#pragma once

#include <QByteArrayView>
#include <array>
#include <functional>
#include <span>

/// The comment that a caller answers, with a NUL behind it.
using CommentBuffer = std::array<char, 4097>;

/// What the zip library calls while a job runs, always on the thread of the job. Texts are not ended by a
/// NUL. A function may run pending events; it may not throw.
struct ZIPUSERFUNCTIONS
{
    /// A message for the user.
    std::function<int(QByteArrayView text)> print;
    /// The comment wanted for the archive. Left empty, the archive keeps the one that it has.
    std::function<void(CommentBuffer &comment)> comment;
    /// Asked twice, the second time for confirmation. Fills the buffer up to a NUL; anything but 0 cancels.
    std::function<int(std::span<char> buffer)> password;
    /// Called between any two pieces of work, with the name at work; 1 cancels.
    std::function<int(QByteArrayView name)> service;
};
