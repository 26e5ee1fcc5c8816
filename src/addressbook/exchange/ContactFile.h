#pragma once

#include "ContactList.h"
#include "CsvWriter.h"
#include "VCardWriter.h"

/// Files of contacts, in the format that the end of their name says: ".vcf" or ".csv" in any case of letters.
namespace ContactFile {

struct Options
{
    VCardWriter::Version version = VCardWriter::Version::V4;
    CsvWriter::Formulas formulas = CsvWriter::Formulas::AsTheyAre;
};

/// Throws RuntimeError as Files::read does, 321 for another name or a file that has no contacts, and 7 for a
/// file of more than 256 MiB.
ContactList load(const QString &path);

/// Replaces \a path. Throws RuntimeError as Files::write does, and 321 for another name.
void save(const QString &path, const QList<Contact> &contacts, const Options &options);

} // namespace ContactFile
