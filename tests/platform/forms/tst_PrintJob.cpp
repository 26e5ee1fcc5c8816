#include "ErrorNumberOf.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintJob.h"
#include "PrintQt.h"
#include "PrintedPdf.h"
#include "QtMessages.h"
#include "ScratchHome.h"
#include "ScratchVariable.h"

#include <QDir>
#include <QPrinter>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

struct PrintJobTest : testing::Test
{
    PrintJobTest()
        : scratch("TMPDIR", home.file(QStringLiteral("scratch")).toUtf8())
    {
        QDir().mkpath(home.file(QStringLiteral("scratch")));
        printer.setOutputFileName(file);
        printer.setDocName(QStringLiteral("My letter"));
    }
    static void paint(PrintJob &job, const char *word)
    {
        job.painter().drawText(200, 200, QString::fromLatin1(word));
    }
    bool isScratchEmpty() const { return QDir(home.file(QStringLiteral("scratch"))).isEmpty(); }

    ScratchHome home;
    ScratchVariable scratch;
    QString file = home.file(QStringLiteral("a.pdf"));
    QPrinter printer{QPrinter::HighResolution};
};

} // namespace

TEST_F(PrintJobTest, TheFileIsWrittenWhenTheJobIsFinished)
{
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    {
        PrintJob job(printer);
        paint(job, "one");
        job.newPage();
        paint(job, "two");
        EXPECT_FALSE(QFile::exists(file));
        job.finish();
        EXPECT_TRUE(QFile::exists(file));
    }
    const PrintedPdf printed(file);
    ASSERT_EQ(printed.pages().size(), 2);
    EXPECT_EQ(printed.pages()[0].trimmed(), QStringLiteral("one"));
    EXPECT_EQ(printed.pages()[1].trimmed(), QStringLiteral("two"));
    EXPECT_EQ(printed.title(), QStringLiteral("My letter"));
    EXPECT_EQ(printer.outputFileName(), file);
    EXPECT_TRUE(isScratchEmpty());
}

TEST_F(PrintJobTest, TheFirstNextPageIsThatWithWhichTheJobBegins)
{
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        GTEST_SKIP() << "pdftotext, which reads the printed pages, is not installed";
    PrintJob job(printer);
    for (const char *word : {"one", "two", "three"}) {
        job.nextPage();
        paint(job, word);
    }
    job.finish();
    EXPECT_EQ(PrintedPdf(file).pages().join(u'|').simplified().remove(u' '), QStringLiteral("one|two|three"));
}

TEST_F(PrintJobTest, AnUnfinishedJobLeavesNoFile)
{
    {
        PrintJob job(printer);
        paint(job, "one");
    }
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_TRUE(isScratchEmpty());
    EXPECT_EQ(printer.outputFileName(), file);
}

TEST_F(PrintJobTest, AFullDiskLeavesTheOldFile)
{
    Files::write(file, "old");
    {
        PrintJob job(printer);
        paint(job, "one");
        const FullDisk full(200);
        EXPECT_EQ(errorNumberOf([&] { job.finish(); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(file), QByteArray("old"));
    EXPECT_TRUE(isScratchEmpty());
}

TEST_F(PrintJobTest, AFolderThatIsGoneIsAnError)
{
    printer.setOutputFileName(home.file(QStringLiteral("gone/a.pdf")));
    PrintJob job(printer);
    EXPECT_EQ(errorNumberOf([&] { job.finish(); }), ErrorNumber::PathNotFound);
}

TEST_F(PrintJobTest, WithoutAPlaceToWorkNothingBegins)
{
    Files::write(home.file(QStringLiteral("plain")), "no folder");
    const ScratchVariable nowhere("TMPDIR", home.file(QStringLiteral("plain")).toUtf8());
    EXPECT_EQ(errorNumberOf([&] { PrintJob job(printer); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(printer.outputFileName(), file);
}

TEST_F(PrintJobTest, ABusyPrinterDoesNotBegin)
{
    QtMessages::expect(QStringLiteral("A paint device can only be painted by one painter at a time"));
    QtMessages::expect(QStringLiteral("Cannot be changed while printer is active"));
    PrintJob first(printer);
    EXPECT_EQ(errorNumberOf([&] { PrintJob second(printer); }), ErrorNumber::PrinterError);
}
