#pragma once

#include <QtGlobal>

/// The file "dialler.dat" in the program's folder: one line with one number, the position of the chosen line
/// in the dialler's list. The functions throw RuntimeError as Files does.
namespace DiallerFile {

/// The number that the file begins with, rounded to a whole one; 0 where it has none. Throws RuntimeError 6
/// for a number beyond 32 bits.
qint32 read();

/// Replaces the file.
void write(qint32 position);

} // namespace DiallerFile
