#pragma once

#include <sys/stat.h>

/// The permissions of new files.
namespace FileMode {

/// What the user's mask leaves; only the user may do anything where the system does not say what the mask is.
/// Does not change the mask for a moment, as umask() does: other threads make files meanwhile.
mode_t ordinary();

} // namespace FileMode
