#include "AddressDatabase.h"
#include "AsUser.h"
#include "DataError.h"
#include "Forms.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ReportBook.h"
#include "Transaction.h"
#include "modprint.h"

#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct PrintSummaryTest : testing::Test
{
    void SetUp() override
    {
        if (!ReportBook::canReadPages())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    void print() { PrintSummary(reports.rows); }
    QString folder() const { return QFileInfo(reports.book.path()).path(); }
    bool isReported() const { return QFile::exists(folder() + QStringLiteral("/recordtestr.rtf")); }
    bool isFormLoaded() const { return !Forms::named(QStringLiteral("frmPrintDocument")).isEmpty(); }

    ReportBook reports;
};

} // namespace

TEST_F(PrintSummaryTest, IsOneDocumentOfAllCheckedContacts)
{
    reports.add({"Ann", "Ben", "Cid", "Dan"});
    reports.setChecked(2, false);
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("a.pdf"));
    const QStringList lines = reports.summaryLines();
    ASSERT_EQ(lines.size(), 6 + 3 + 3 + 2);
    EXPECT_TRUE(lines[6].startsWith(QStringLiteral("\\par \\b0 Ann ")));
    EXPECT_TRUE(lines[7].startsWith(QStringLiteral("\\par Cid ")));
    EXPECT_TRUE(lines[8].startsWith(QStringLiteral("\\par Dan ")));
    EXPECT_EQ(lines.mid(9).join(u'|'), QStringLiteral("\\par |\\par End of Report..\\tab|\\par }||"));
    const QString page = reports.printed();
    EXPECT_TRUE(page.startsWith(QStringLiteral("Address Records Summary For Selected Records")));
    EXPECT_TRUE(page.contains(QStringLiteral("Dan")));
    EXPECT_FALSE(page.contains(QStringLiteral("Ben")));
    EXPECT_TRUE(page.endsWith(QStringLiteral("End of Report..")));
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSummaryTest, HasTheFirstNumbersAlone)
{
    reports.add({.groupId = 1, .name = QStringLiteral("Ann")},
                {.address = QStringLiteral("1 Road"),
                 .cityId = 1,
                 .phone1 = QStringLiteral("11"),
                 .phone2 = QStringLiteral("12"),
                 .mobile = QStringLiteral("13")},
                {.cityId = 1,
                 .phone1 = QStringLiteral("21"),
                 .phone2 = QStringLiteral("22"),
                 .pager = QStringLiteral("23")});
    reports.expectCancel();
    print();
    EXPECT_EQ(
        reports.summaryLines().value(6),
        QStringLiteral("\\par \\b0 Ann                      \\tab 1 Road              \\tab ..             "
                       "\\tab H:11          \\tab M:13          \\tab W:21          "));
}

TEST_F(PrintSummaryTest, ACancelPrintsNothing)
{
    reports.add({"Ann"});
    reports.expectCancel();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_TRUE(isReported());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSummaryTest, OverAnythingButContactsNothingHappens)
{
    reports.add({"Ann"});
    reports.rows.setColumnHeaders({{QStringLiteral("Col1"), QStringLiteral("CityID"), 800}});
    print();
    EXPECT_EQ(reports.dialogsSeen(), 0);
    EXPECT_FALSE(isReported());
}

TEST_F(PrintSummaryTest, WhereNothingIsCheckedABoxSaysSo)
{
    reports.frame.dialogs
        .expectBox(QStringLiteral("Nothing to Print..."),
                   QStringLiteral("You have not selected any records to print!"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    print();
    EXPECT_FALSE(isReported());
}

TEST_F(PrintSummaryTest, AnErrorIsABoxAndNothingIsPrinted)
{
    reports.list(7, QStringLiteral("gone"));
    reports.add({"Ann"});
    reports.expectError(
        DataError::NoCurrentRow,
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
        "requires a current record.");
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_FALSE(isReported());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSummaryTest, AFullDiskIsABoxAndLeavesTheOldReport)
{
    reports.add({"Ann"});
    reports.expectCancel();
    print();
    const QByteArray old = reports.summaryFile();
    reports.add({"Ben"});
    const FullDisk full(500);
    reports.expectError(ErrorNumber::DiskFull, "Disk full");
    print();
    EXPECT_EQ(reports.summaryFile(), old);
}

TEST_F(PrintSummaryTest, AFolderThatMayNotBeWrittenIsABox)
{
    reports.add({"Ann"});
    const AsUser user(folder());
    ::chmod(QFile::encodeName(folder()).constData(), 0500);
    reports.expectError(ErrorNumber::PermissionDenied, "Permission denied");
    print();
    ::chmod(QFile::encodeName(folder()).constData(), 0700);
    EXPECT_FALSE(isReported());
}

TEST_F(PrintSummaryTest, WhatCannotBePrintedIsNotReported)
{
    reports.add({"Ann"});
    const FullDisk full(3000); // room for the report
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSummaryTest, NamesOfOpenBracesArePrinted)
{
    {
        Transaction fill(AddressConnection);
        for (int i = 0; i < 400; ++i)
            reports.add(QString(25, u'{'));
        fill.commit();
    }
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.summaryFile().count('{'), 4 + 400 * (1 + 25));
    EXPECT_TRUE(reports.printed().startsWith(QStringLiteral("Address Records Summary")));
    EXPECT_TRUE(reports.printed().endsWith(QStringLiteral("End of Report..")));
}
