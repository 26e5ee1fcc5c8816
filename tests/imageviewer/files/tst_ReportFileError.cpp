#include "FakeFrame.h"
#include "PrintQt.h"
#include "ReportFileError.h"

#include "RuntimeError.h"

#include <gtest/gtest.h>
#include <new>

namespace {

struct ErrorRow
{
    int number;
    const char *title;
    const char *text;
    QMessageBox::Icon icon = QMessageBox::Critical;
};

void PrintTo(const ErrorRow &row, std::ostream *out)
{
    *out << row.number;
}

struct ReportFileErrorTest : testing::TestWithParam<ErrorRow>
{
    FakeFrame frame;
};

struct ReportNoErrorTest : testing::Test
{
    FakeFrame frame;
};

} // namespace

TEST_P(ReportFileErrorTest, KnowsTheNumber)
{
    const ErrorRow &row = GetParam();
    frame.dialogs.expectBox(QString::fromLatin1(row.title), QString::fromLatin1(row.text))
        .icon(row.icon)
        .buttons(QMessageBox::Ok);
    EXPECT_FALSE(reportingFileErrors([&] { throw RuntimeError(row.number); }));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ReportFileErrorTest,
    testing::Values(
        ErrorRow{57, "Drive Error",
                 "Device I/O error. There is a Hardware Problem. Please Check the Disc Drive."},
        ErrorRow{61, "Disk Full Error", "The disk is full. Try deleting some files before saving."},
        ErrorRow{70, "Access Error",
                 "Access denied. Make sure the write protection is turned off at the source you are saving "
                 "to."},
        ErrorRow{71, "Drive Not Ready Error",
                 "Device not ready. It may be that the drive door is open - please check and try again.",
                 QMessageBox::Warning},
        ErrorRow{72, "Media Error", "Disk media error. Cannot Continue!"},
        ErrorRow{6, "System Error", "Error 6: Overflow"},
        ErrorRow{53, "System Error", "Error 53: File not found"},
        ErrorRow{481, "System Error", "Error 481: Invalid picture"}));

TEST_F(ReportNoErrorTest, ACancelledDialogShowsNothing)
{
    EXPECT_FALSE(reportingFileErrors([] { throw RuntimeError(ErrorNumber::DialogCancelled); }));
    EXPECT_TRUE(frame.dialogs.seen().isEmpty());
}

TEST_F(ReportNoErrorTest, WithoutAnErrorNothingHappens)
{
    ReportFileError();
    EXPECT_TRUE(reportingFileErrors([] {}));
    EXPECT_TRUE(frame.dialogs.seen().isEmpty());
}

TEST_F(ReportNoErrorTest, OtherExceptionsHaveNumbersToo)
{
    frame.dialogs.expectBox(QStringLiteral("System Error"), QStringLiteral("Error 7: Out of memory"));
    EXPECT_FALSE(reportingFileErrors([] { throw std::bad_alloc(); }));
}
