#pragma once

#include <sys/stat.h>

/// The permissions of new files.
namespace FileMode {

/// What the user's mask leaves. Not for several threads at once, since the mask can only be read by setting
/// it.
inline mode_t ordinary()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace FileMode
