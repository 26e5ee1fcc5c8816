#include "AddressDatabase.h"
#include "AsUser.h"
#include "DataError.h"
#include "ErrorNumberOf.h"
#include "Forms.h"
#include "FullDisk.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "ReportBook.h"
#include "modMain.h"
#include "modprint.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const char noRow[] = "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
                     "requires a current record.";

struct PrintSelectedRecordsTest : testing::Test
{
    void SetUp() override
    {
        if (!ReportBook::canReadPages())
            GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    }

    void print() { PrintSelectedRecords(reports.rows); }
    int errorOfPrinting()
    {
        return errorNumberOf([this] { print(); });
    }
    bool isFormLoaded() const { return !Forms::named(QStringLiteral("frmPrintDocument")).isEmpty(); }
    bool isReported() const
    {
        return QFile::exists(QFileInfo(reports.book.path()).path() + QStringLiteral("/recordtest.rtf"));
    }
    static bool hasSheetOf(const QString &page, const char *name)
    {
        return page.contains(QStringLiteral("ADDRESS BOOK DETAILS FOR ") + QLatin1String(name) + u'.');
    }

    /// The contacts of the printed documents, a bar between each two; the names of a document are on one
    /// page.
    QString sheets() const
    {
        QStringList documents;
        for (const QString &page : reports.printedPages()) {
            QStringList names;
            static const QRegularExpression head(QStringLiteral("ADDRESS BOOK DETAILS FOR (\\w+)\\."));
            for (const auto &sheet : head.globalMatch(page))
                names.append(sheet.captured(1));
            if (!names.isEmpty())
                documents.append(names.join(u' '));
        }
        return documents.join(u'|');
    }

    ReportBook reports;
};

} // namespace

TEST_F(PrintSelectedRecordsTest, OverAnythingButContactsNothingHappens)
{
    reports.add({"Ann"});
    for (const char *caption : {"name", "GroupID", ""}) {
        reports.rows.setColumnHeaders({{QStringLiteral("Col1"), QString::fromLatin1(caption), 800}});
        print();
    }
    reports.rows.setColumnHeaders({});
    print();
    EXPECT_EQ(reports.dialogsSeen(), 0);
    EXPECT_FALSE(isReported());
    EXPECT_EQ(AnyChecked, -1); // looked for all the same
}

TEST_F(PrintSelectedRecordsTest, WhereNothingIsCheckedABoxSaysSo)
{
    reports.add({"Ann"});
    reports.setChecked(1, false);
    reports.frame.dialogs
        .expectBox(QStringLiteral("Nothing to Print..."),
                   QStringLiteral("You have not selected any records to print!"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    print();
    EXPECT_FALSE(isReported());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, OneContactIsADocumentAndTheUserIsAsked)
{
    reports.add({"Ann", "Ben"});
    reports.setChecked(2, false);
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_TRUE(hasSheetOf(reports.printed(), "Ann"));
    const QStringList lines = reports.detailLines();
    EXPECT_EQ(lines.mid(lines.size() - 4),
              QStringList({QStringLiteral("\\par \\b\\f1"), QStringLiteral("\\par \\b0"), QStringLiteral("}"),
                           QString()}));
    EXPECT_EQ(lines.filter(QStringLiteral("DETAILS FOR")).size(), 1);
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, TwoContactsAreOneDocument)
{
    reports.add({"Ann", "Ben", "Cid"});
    reports.setChecked(2, false);
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("a.pdf"));
    EXPECT_TRUE(hasSheetOf(reports.printed(), "Ann"));
    EXPECT_TRUE(hasSheetOf(reports.printed(), "Cid"));
    EXPECT_EQ(reports.detailLines().mid(reports.detailLines().size() - 2),
              QStringList({QStringLiteral("\\par }"), QString()}));
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, AThirdContactIsPrintedByItselfWithoutADialog)
{
    reports.add({"Ann", "Ben", "Cid"});
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(sheets(), QStringLiteral("Ann Ben|Cid"));
    EXPECT_TRUE(reports.detailFile().endsWith("\\par \\b0\r\n}\r\n"));
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, TheUserIsAskedOnceForManyDocuments)
{
    reports.add({"Ann", "Ben", "Cid", "Dan", "Eve", "Fay"});
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(sheets(), QStringLiteral("Ann Ben|Cid Dan|Eve Fay"));
    reports.expectPrint("b.pdf"); // a new run asks again
    print();
    EXPECT_EQ(reports.dialogsSeen(), 2);
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("a.pdf|b.pdf"));
}

TEST_F(PrintSelectedRecordsTest, ACancelAtTheFirstPairEndsTheRun)
{
    reports.add({"Ann", "Ben", "Cid"});
    reports.expectCancel();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("DETAILS FOR")).size(), 2); // of Ann and Ben
    ASSERT_TRUE(isFormLoaded());
    EXPECT_FALSE(Forms::named(QStringLiteral("frmPrintDocument")).first()->isVisible());
    reports.expectPrint();
    print();
    EXPECT_EQ(sheets(), QStringLiteral("Ann Ben|Cid"));
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, ACancelForOneContactPrintsNothing)
{
    reports.add({"Ann"});
    reports.expectCancel();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_TRUE(isReported());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, ValuesReachTheirPlaces)
{
    const qsizetype blanksBefore = [this] {
        reports.add({"Ann"});
        reports.expectCancel();
        print();
        return reports.detailLine("Email:\\tab\\tab\\b0 ").indexOf(u'\\');
    }();
    reports.setChecked(1, false);
    const auto text = [](const char *words) { return QString::fromUtf8(words); };
    reports.add({.groupId = 1, .name = text("J\u00F6rg \u20AC \u0416"), .birthDate = QDate(1999, 9, 5)},
                {.address = text("1 Road\nFlat 2"), .cityId = 1, .phone1 = text("123")},
                {.cityId = 1, .phone1 = text("4"), .phone2 = text("5")},
                {text("a@example.org"), text("b@example.org")});
    reports.expectPrint();
    print();
    EXPECT_TRUE(reports.detailFile().contains("DETAILS FOR J\xF6rg \x80 \\u1046?.\r\n"));
    EXPECT_TRUE(reports.detailFile().contains("Address:  \\tab\\b0 1 Road\nFlat 2\\tab\r\n"));
    EXPECT_EQ(reports.detailLine("Telephone:\\tab\\b0 "), text("123:\\tab\\tab\\b Mobile:\\b0\\tab \\tab"));
    EXPECT_EQ(reports.detailLine("Work Telephone:\\tab\\b0 "), text("4:5\\tab\\b Mobile:\\b0\\tab \\tab"));
    EXPECT_TRUE(reports.detailLine("DOB:\\tab\\tab\\b0 ").startsWith(text("05-Sep-1999\\tab")));
    EXPECT_EQ(reports.detailLine("Email:\\tab\\tab\\b0 "),
              QString(blanksBefore + 2, u' ') + text("\\b\\tab\\b0"));
    EXPECT_TRUE(reports.printed().contains(text("FOR J\u00F6rg \u20AC \u0416.")));
}

TEST_F(PrintSelectedRecordsTest, MarkupInAValueIsMarkup)
{
    reports.add(QStringLiteral("Ann{\\b  Lee}\\'21"));
    reports.expectPrint();
    print();
    EXPECT_TRUE(reports.printed().contains(QStringLiteral("DETAILS FOR Ann Lee!. Name: Ann Lee!")));
}

/// So many fonts once made a word processor write behind the end of its table.
TEST_F(PrintSelectedRecordsTest, AValueWithATableOfManyFontsIsPrintedWithoutIt)
{
    constexpr int fonts = 32761;
    QString table = QStringLiteral("{\\fonttbl");
    for (int number = 0; number < fonts; ++number)
        table += QStringLiteral("{\\f%1 F;}").arg(number);
    reports.add(
        {.groupId = 1, .name = QStringLiteral("Ann")},
        {.cityId = 1, .phone1 = table + QStringLiteral("}\\f32760 12"), .phone2 = QStringLiteral("3")},
        {.cityId = 1});
    reports.add({"Ben", "Cid"});
    reports.expectPrint();
    print();
    EXPECT_TRUE(reports.printed().contains(QStringLiteral("Telephone: 12:3 Mobile:")));
    EXPECT_EQ(sheets(), QStringLiteral("Ann Ben|Cid"));
}

TEST_F(PrintSelectedRecordsTest, AnErrorBeforeTheFirstPairIsThrown)
{
    reports.add({"Ann"});
    reports.list(7, QStringLiteral("gone"));
    EXPECT_EQ(errorOfPrinting(), DataError::NoCurrentRow);
    EXPECT_EQ(reports.dialogsSeen(), 0);
    EXPECT_FALSE(isReported()); // no half of a document
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, AnErrorBehindTheFirstPairIsABox)
{
    reports.add({"Ann", "Ben", "Cid"});
    reports.list(7, QStringLiteral("gone"));
    reports.add({"Eve"});
    reports.expectPrint();
    reports.expectError(DataError::NoCurrentRow, noRow);
    print();
    EXPECT_EQ(sheets(), QStringLiteral("Ann Ben"));                               // what was printed is kept
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("FOR Ben")).size(), 1); // still the first document
    EXPECT_TRUE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, WhatAFailedRunLeftIsNoPartOfTheNext)
{
    reports.add({"Ann", "Ben", "Cid"});
    reports.list(7, QStringLiteral("gone"));
    reports.expectPrint();
    reports.expectError(DataError::NoCurrentRow, noRow);
    print();
    reports.setChecked(1, false);
    reports.setChecked(3, false);
    reports.setChecked(4, false);
    reports.expectPrint("b.pdf");
    print();
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("DETAILS FOR")).size(), 1);
    EXPECT_TRUE(hasSheetOf(reports.printed("b.pdf"), "Ben"));
    EXPECT_FALSE(reports.printed("b.pdf").contains(QStringLiteral("Cid")));
}

TEST_F(PrintSelectedRecordsTest, APairThatCannotBePrintedIsABox)
{
    reports.add({"Ann", "Ben", "Cid"});
    const FullDisk full(6000); // room for the report
    reports.expectPrint();
    reports.expectError(ErrorNumber::DiskFull, "Disk full");
    print();
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_TRUE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, SheetsThatCannotBeWrittenAreABoxAlsoAfterALastContact)
{
    reports.add({"Ann", "Ben", "Cid"});
    const QString folder = reports.book.home().file(QStringLiteral("folder"));
    QDir().mkpath(folder);
    reports.expectPrintDialog([&](QPrintDialog &dialog) {
        pressPrint(dialog, folder + QStringLiteral("/a.pdf"));
        QDir().rmdir(folder);
    });
    reports.expectError(ErrorNumber::PathNotFound, "Path not found");
    print();
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("FOR Cid")).size(), 1);
}

TEST_F(PrintSelectedRecordsTest, ALastContactThatCannotBePrintedIsNotReported)
{
    reports.add({"Ann"});
    const FullDisk full(6000);
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.dialogsSeen(), 1);
    EXPECT_EQ(reports.printedFiles(), QString());
    EXPECT_FALSE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, AFullDiskIsThrownAndLeavesTheOldReport)
{
    reports.add({"Ann"});
    reports.expectPrint();
    print();
    const QByteArray old = reports.detailFile();
    const FullDisk full(500);
    EXPECT_EQ(errorOfPrinting(), ErrorNumber::DiskFull);
    EXPECT_EQ(reports.detailFile(), old);
    EXPECT_EQ(reports.dialogsSeen(), 1);
}

TEST_F(PrintSelectedRecordsTest, AFullDiskBehindTheFirstPairIsABox)
{
    reports.add({"Ann", "Ben"});
    reports.add({.groupId = 1, .name = QStringLiteral("Cid")}, {.cityId = 1}, {.cityId = 1});
    AddressConnection.execute(QStringLiteral("pragma ignore_check_constraints=on"));
    AddressConnection.execute(QStringLiteral("update Names set Comment=replace(hex(zeroblob(50000)),'0','x') "
                                             "where Name='Cid'"));
    const FullDisk full(60000); // the third contact's report alone is larger
    reports.expectPrint();
    reports.expectError(ErrorNumber::DiskFull, "Disk full");
    print();
    EXPECT_EQ(reports.printedFiles(), QStringLiteral("a.pdf"));
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("FOR Ben")).size(), 1);
    EXPECT_TRUE(isFormLoaded());
}

TEST_F(PrintSelectedRecordsTest, AFolderThatMayNotBeWrittenIsThrown)
{
    reports.add({"Ann", "Ben"});
    const QString folder = QFileInfo(reports.book.path()).path();
    const AsUser user(folder);
    ::chmod(QFile::encodeName(folder).constData(), 0500);
    EXPECT_EQ(errorOfPrinting(), ErrorNumber::PermissionDenied);
    ::chmod(QFile::encodeName(folder).constData(), 0700);
    EXPECT_FALSE(isReported());
    EXPECT_EQ(reports.dialogsSeen(), 0);
}

TEST_F(PrintSelectedRecordsTest, TheTestCommandBeginsAReportThatIsNotWritten)
{
    WriteFirstDetail();
    EXPECT_FALSE(isReported());
    reports.add({"Ann"});
    reports.expectPrint();
    print();
    EXPECT_EQ(reports.detailLines().filter(QStringLiteral("DETAILS FOR")).size(), 1);
}
