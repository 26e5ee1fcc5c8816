#pragma once

#include "ExtraFields.h"

#include <QByteArray>

/// The names of entries, which archives have in several encodings.
namespace EntryName {

/// \a stored as UTF-8: by its own mark, by the field that repeats it in UTF-8, or because it is valid UTF-8.
/// Else a name made by DOS or Windows is in code page 437, and one made by Unix keeps its bytes.
QByteArray decode(const QByteArray &stored, const ExtraFields &fields, bool isUnixMade);

/// As much of \a name as fits into the 255 bytes that callbacks get, with no character cut.
QByteArray shown(const QByteArray &name);
/// The same of a folder, always with a slash at its end.
QByteArray shownFolder(const QByteArray &name);

} // namespace EntryName
