#pragma once

#include "FtpProfile.h"

#include <QList>
#include <array>

/// The file "ftpprof.dat" in the program's folder: plain text in Windows-1252, a record a line, its fields
/// parted by commas and not quoted. The functions throw RuntimeError as Files does.
namespace FtpProfileFile {

inline constexpr int count = 101; ///< records that are written
inline constexpr int readable = count - 1;

using Table = std::array<FtpProfile, count>;

/// The first record. What the file lacks of it is empty.
FtpProfile readFirst();

/// Reads into \a table from its beginning and returns how many records there were. The rest of the table
/// stays as it is, the last record always.
int read(Table &table);

/// Replaces the file by \a table, each record under the number of its place. Only the user may read the file.
void write(const Table &table);

} // namespace FtpProfileFile
