#pragma once

#include "ListedEntry.h"

#include <QByteArrayView>
#include <functional>
#include <span>

/// What the replace function answers.
namespace OverwriteAnswer {
inline constexpr int No = 100;
inline constexpr int Yes = 102;
inline constexpr int All = 103;
inline constexpr int None = 104;
} // namespace OverwriteAnswer

/// What the unzip library calls while a job runs, always on the thread of the job. Texts are not ended by a
/// NUL. A function may run pending events; it may not throw.
struct USERFUNCTION
{
    /// A message for the user.
    std::function<int(QByteArrayView text)> print;
    /// Whether the file \a name, at most 255 bytes, may be overwritten; an OverwriteAnswer, any other number
    /// is No.
    std::function<int(QByteArrayView name)> replace;
    /// Fills the buffer up to a NUL; anything but 0 means that there is no password, and encrypted entries
    /// are skipped. Asked again after a wrong one, three times at most.
    /// One in 65,536 wrong passwords passes the check of an AES entry, which then counts as damaged.
    std::function<int(std::span<char> buffer)> password;
    /// One entry of a listing.
    std::function<void(const ListedEntry &entry)> message;
    /// Called between any two pieces of work, with the name at work; 1 cancels.
    std::function<int(QByteArrayView name)> service;
};
