#pragma once

#include "ArchiveDirectory.h"

#include <functional>
#include <zip.h>

/// libzip reads the directory on its own, and in a file with several it may take another one than
/// DirectoryReader. Then the indices of our entries mean other ones there.
namespace DirectoryCheck {

/// Throws BadArchive unless \a archive, which is not changed yet, has the entries of \a directory.
/// \a betweenEntries is called now and then; what it throws ends the check.
void requireSame(zip_t *archive, const ArchiveDirectory &directory,
                 const std::function<void()> &betweenEntries);

} // namespace DirectoryCheck
