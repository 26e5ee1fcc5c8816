#pragma once

#include "Contact.h"

#include <QByteArray>
#include <QList>

/// Writes comma-separated values in UTF-8: a line of captions, then one of each contact, every field in
/// quotes.
namespace CsvWriter {

/// Whether a text that a spreadsheet would calculate ("=1+1") gets an apostrophe in front. Telephone numbers
/// never get one.
enum class Formulas { AsTheyAre, Guarded };

QByteArray write(const QList<Contact> &contacts, Formulas formulas);

} // namespace CsvWriter
