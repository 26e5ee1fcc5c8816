#pragma once

#include <QList>
#include <QStringList>

/// Rows of texts as comma-separated values (RFC 4180).
namespace CsvText {

/// The rows of \a text, whose line ends are "\n". What parts the fields (comma, semicolon or tab) is what the
/// first row has most of. Empty lines are left out. Throws RuntimeError 321 where a quote does not end: what
/// comes behind its beginning could be anything.
QList<QStringList> read(const QString &text);

/// \a row with each field in quotes, and CR LF.
QString written(const QStringList &row);

} // namespace CsvText
