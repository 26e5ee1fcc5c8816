#pragma once

#include "ArchiveEntry.h"

#include <vector>
#include <zip.h>

/// The entry that holds the label of the volume of an archive's files.
namespace LabelEntry {

/// Gives \a archive, which has \a entries, the label \a label in place of the one that it has. Returns false,
/// with nothing changed, where a file or folder has that name. Throws std::bad_alloc.
bool set(zip_t *archive, const std::vector<ArchiveEntry> &entries, const QByteArray &label);

} // namespace LabelEntry
