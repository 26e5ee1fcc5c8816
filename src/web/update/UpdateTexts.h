#pragma once

#include "UpdateFileList.h"
#include "VersionFile.h"

/// What the update checker's text box shows. What comes from the server is as ShownText has it.
namespace UpdateTexts {

QString start();
QString error();

/// \a line, and that it takes a while.
QString progress(const QString &line);
QString versions(const VersionFile::ServerVersion &server);
QString newVersion(const VersionFile &file);
QString upToDate(const VersionFile &file);

/// \a number counts from 1.
QString downloading(int number, const UpdateFile &file);
QString length(const UpdateFile &file, qint64 bytes);
/// \a before is what the box showed.
QString wrongLength(const QString &before, const UpdateFile &file);
QString extracting();
QString launching();

} // namespace UpdateTexts
