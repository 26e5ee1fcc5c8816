#pragma once

#include <QByteArray>

/// Names with "*", "?" and "[...]"; "*" also matches "/".
namespace FilePattern {

bool isPattern(const QByteArray &name);

/// \a path matches \a pattern, in any case: by its last name where the pattern has no "/", else as a whole.
bool matchesFile(const QByteArray &pattern, const QByteArray &path);

/// The entry \a name matches \a pattern, letter by letter.
bool matchesEntry(const QByteArray &pattern, const QByteArray &name);

} // namespace FilePattern
