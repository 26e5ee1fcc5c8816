#pragma once

#include <QByteArray>

/// One line of a server's list, as the row of its entry: the name, a folder's with "/" behind it. Empty for a
/// line that is no entry. The cost grows with the length of the line alone.
namespace FtpListingLine {

/// A line of MLSD: "type=dir;modify=20260101000000; name", or " name" where the server says no facts.
QByteArray machineRow(QByteArrayView line);

/// A line of LIST: as of Unix, of DOS, or in the easily parsed format ("+facts,TAB name").
QByteArray row(QByteArrayView line);

} // namespace FtpListingLine
