#pragma once

#include "ListItem.h"

#include <vector>

class FileIcons;
class cUnzip;

/// The rows of an archive's list.
namespace ArchiveRows {

/// The table of \a archive, in its order. The key of a row is "File" and the number of its record. An
/// encrypted file has "+" before its name.
std::vector<ListItem> of(const cUnzip &archive, FileIcons &icons);

/// The number of the record that the row with \a key shows.
int recordOf(const QString &key);

} // namespace ArchiveRows
