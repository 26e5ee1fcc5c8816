#include "GetFileSize.h"

#include "FileDetails.h"
#include "FileSizeText.h"
#include "ReportFileError.h"

QString GetFileSize(const QString &FileName)
{
    QString size = QStringLiteral("0 Bytes");
    reportingFileErrors([&] { size = FileSizeText::of(FileDetails::of(FileName).length); });
    return size;
}
