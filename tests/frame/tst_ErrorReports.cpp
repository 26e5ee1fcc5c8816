#include "DialogDriver.h"
#include "ErrorReports.h"
#include "FatalErrors.h"
#include "Globals.h"

#include <gtest/gtest.h>

namespace {

[[noreturn]] void fail(int number)
{
    throw RuntimeError(number);
}

} // namespace

TEST(ErrorReports, ARecoverableErrorIsShownAndWorkContinues)
{
    DialogDriver dialogs;
    dialogs
        .expectBox(QStringLiteral("System Error!"),
                   QStringLiteral("An error has occurred - Code: 53 Description: File not found"))
        .icon(QMessageBox::Critical);
    lastAnswer.clear();
    resumeNext([] { fail(ErrorNumber::FileNotFound); });
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST(ErrorReports, ACancelledDialogIsNotShown)
{
    const DialogDriver dialogs;
    resumeNext([] { fail(ErrorNumber::DialogCancelled); });
    EXPECT_TRUE(dialogs.seen().isEmpty());
}

TEST(ErrorReports, IgnoredErrorsAreNotShown)
{
    const DialogDriver dialogs;
    ignoreErrors([] { fail(ErrorNumber::TypeMismatch); });
    EXPECT_TRUE(dialogs.seen().isEmpty());
}

TEST(ErrorReports, AFatalErrorEndsTheProgram)
{
    FatalErrors fatal;
    DialogDriver dialogs;
    dialogs
        .expectBox(QStringLiteral("Quill-Office Tools - Error Message"),
                   QStringLiteral("An error has occurred: \nCode: 6\nDetail: Overflow"))
        .icon(QMessageBox::Critical);
    fatal.expectEnd(EXIT_FAILURE);
    ReportFatalError(6, QStringLiteral("Overflow"));
}
