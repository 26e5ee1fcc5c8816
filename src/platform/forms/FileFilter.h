#pragma once

#include <QStringList>

/// File dialog filters as the suite writes them, texts and patterns in turn between bars:
/// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*".
namespace FileFilter {

/// The entries as the toolkit wants them, "Text Files (*.txt)"; "*.*" stands for every file, also one without
/// a dot. A text without a pattern behind it is dropped.
QStringList toNameFilters(const QString &filter);

} // namespace FileFilter
