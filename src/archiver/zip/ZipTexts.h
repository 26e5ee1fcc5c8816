#pragma once

#include <QString>

/// The longer texts of the zip window.
namespace ZipTexts {

/// What the box of the archive says before one has been chosen.
inline const QString targetPrompt =
    QStringLiteral("Select a Folder and type file name (select a zip file to append the files)...");

/// \a count rows have gone to \a archive.
/// Intended: the rows are counted, not what the library added.
QString zipped(int count, const QString &archive);

/// The files matching the fixed patterns have gone from \a folder to \a archive.
QString zippedBelow(const QString &folder, const QString &archive);

} // namespace ZipTexts
