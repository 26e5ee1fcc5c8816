#pragma once

#include <QString>

/// The length of the file \a FileName as FileSizeText shows it. What fails is reported by ReportFileError;
/// the text is then "0 Bytes".
QString GetFileSize(const QString &FileName);
