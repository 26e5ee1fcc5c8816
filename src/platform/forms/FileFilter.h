#pragma once

#include <QStringList>

/// File dialog filters as the suite writes them, texts and patterns in turn between bars:
/// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*".
namespace FileFilter {

/// The entries for a dialog that hides what a filter matches: each text, which may have patterns of its own
/// in brackets, and behind it the patterns that count, "All Files (*.*) (*)". "*.*" matches every file,
/// also one without a dot. A text without a pattern behind it is dropped.
QStringList toNameFilters(const QString &filter);

} // namespace FileFilter
