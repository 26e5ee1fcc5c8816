#include "ErrorReports.h"

#include "Ask.h"
#include "EventGate.h"

#include <cstdlib>

void ReportFatalError(int number, const QString &description)
{
    Ask(QStringLiteral("An error has occurred: \nCode: %1\nDetail: %2").arg(number).arg(description),
        MsgBoxStyle::Critical, QStringLiteral("Quill-Office Tools - Error Message"));
    EventGate::end(EXIT_FAILURE);
}

void ReportRecoverableError(int number, const QString &description)
{
    if (number == ErrorNumber::DialogCancelled)
        return;
    Ask(QStringLiteral("An error has occurred - Code: %1 Description: %2").arg(number).arg(description),
        MsgBoxStyle::Critical, QStringLiteral("System Error!"));
}
