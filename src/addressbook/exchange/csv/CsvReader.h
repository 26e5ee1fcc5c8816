#pragma once

#include "ContactList.h"

/// Reads contacts from comma-separated values: files of CsvWriter, and those of other programs whose first
/// line has captions in English.
namespace CsvReader {

/// The contacts of \a bytes, in their order. Throws RuntimeError 321 where no caption of the first line is
/// known, or a quote does not end.
ContactList read(const QByteArray &bytes);

} // namespace CsvReader
