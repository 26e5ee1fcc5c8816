#include "ReportFileError.h"

#include "Ask.h"
#include "RuntimeError.h"

#include <exception>

namespace {

constexpr int driveNotReady = 71;
constexpr int mediaError = 72;

struct ErrorBox
{
    int number;
    const char *title;
    const char *text;
    MsgBoxStyle icon = MsgBoxStyle::Critical;
};

constexpr ErrorBox errorBoxes[] = {
    {ErrorNumber::DeviceIoError, "Drive Error",
     "Device I/O error. There is a Hardware Problem. Please Check the Disc Drive."},
    {ErrorNumber::DiskFull, "Disk Full Error", "The disk is full. Try deleting some files before saving."},
    {ErrorNumber::PermissionDenied, "Access Error",
     "Access denied. Make sure the write protection is turned off at the source you are saving to."},
    {driveNotReady, "Drive Not Ready Error",
     "Device not ready. It may be that the drive door is open - please check and try again.",
     MsgBoxStyle::Exclamation},
    {mediaError, "Media Error", "Disk media error. Cannot Continue!"},
};

void showErrorBox(const RuntimeError &error)
{
    for (const ErrorBox &row : errorBoxes) {
        if (row.number == error.number()) {
            Ask(QString::fromLatin1(row.text), row.icon, QString::fromLatin1(row.title));
            return;
        }
    }
    Ask(QStringLiteral("Error %1: ").arg(error.number()) + error.description(), MsgBoxStyle::Critical,
        QStringLiteral("System Error"));
}

} // namespace

void ReportFileError()
{
    if (!std::current_exception())
        return;
    const RuntimeError error = RuntimeError::current();
    if (error.number() != ErrorNumber::DialogCancelled)
        showErrorBox(error);
}
