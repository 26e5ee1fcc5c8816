#pragma once

#include "ListItem.h"

#include <functional>
#include <vector>

class FileIcons;
class cUnzip;

/// The rows of an archive's list.
namespace ArchiveRows {

/// The table of \a archive, in its order. The key of a row is "File" and the number of its record. An
/// encrypted file has "+" before its name. \a goesOn is asked now and then; after a no the rest is left out.
std::vector<ListItem> of(
    const cUnzip &archive, FileIcons &icons, const std::function<bool()> &goesOn = [] { return true; });

/// The number of the record that the row with \a key shows.
int recordOf(const QString &key);

} // namespace ArchiveRows
