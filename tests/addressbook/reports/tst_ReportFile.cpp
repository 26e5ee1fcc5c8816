#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ReportFile.h"
#include "ScratchProgramFolder.h"

#include <QDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct ReportFileTest : testing::Test
{
    ReportFileTest() { file.open(QStringLiteral("\\r.rtf")); }

    QByteArray written(const QString &text)
    {
        file.open(QStringLiteral("\\r.rtf"));
        file.print(text);
        file.close();
        return Files::read(file.path());
    }
    QStringList names() const { return QDir(folder.path()).entryList(QDir::Files); }

    ScratchProgramFolder folder;
    ReportFile file;
};

} // namespace

TEST_F(ReportFileTest, TextIsWindows1252)
{
    EXPECT_EQ(file.path(), folder.path() + QStringLiteral("/r.rtf"));
    EXPECT_EQ(written(QStringLiteral("a\u00E9\u20AC?\u2026\r\n")), QByteArray("a\xE9\x80?\x85\r\n"));
}

TEST_F(ReportFileTest, WhatIsOutsideThePageIsANumber)
{
    EXPECT_EQ(written(QStringLiteral("?\u00E9 \u0416\u65E5\uFF21 \U0001F600?")),
              QByteArray("?\xE9 \\u1046?\\u26085?\\u-223? \\u-10179?\\u-8704??"));
    EXPECT_EQ(written(QString(QChar(0xDC41))), QByteArray("\\u-9151?")); // half of a pair
    EXPECT_EQ(written(QStringLiteral("\u0080\u0416")), QByteArray("\\u128?\\u1046?"));
}

TEST_F(ReportFileTest, IsOnTheDiskWhenItIsClosed)
{
    file.print(QStringLiteral("a"));
    EXPECT_EQ(names(), QStringList());
    file.print(QStringLiteral("b"));
    file.close();
    EXPECT_EQ(Files::read(file.path()), QByteArray("ab"));
    EXPECT_EQ(written(QStringLiteral("c")), QByteArray("c"));
    EXPECT_EQ(names(), QStringList(QStringLiteral("r.rtf")));
}

TEST_F(ReportFileTest, WhatWasNotClosedIsDropped)
{
    file.print(QStringLiteral("a"));
    EXPECT_EQ(written(QStringLiteral("b")), QByteArray("b"));
    file.print(QStringLiteral("c"));
    file.drop();
    file.close();
    EXPECT_EQ(Files::read(file.path()), QByteArray());
}

TEST_F(ReportFileTest, AFullDiskLeavesTheOldFile)
{
    written(QStringLiteral("old"));
    const QString large(100000, u'x');
    {
        const FullDisk full(4096);
        EXPECT_EQ(errorNumberOf([&] { written(large); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(file.path()), QByteArray("old"));
    EXPECT_EQ(names(), QStringList(QStringLiteral("r.rtf")));
    file.close(); // nothing of the large text is left
    EXPECT_EQ(Files::read(file.path()), QByteArray());
}

TEST_F(ReportFileTest, AFolderThatMayNotBeWrittenIsAnError)
{
    const AsUser user(folder.path());
    ::chmod(QFile::encodeName(folder.path()).constData(), 0500);
    EXPECT_EQ(errorNumberOf([&] { written(QStringLiteral("a")); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(names(), QStringList());
    ::chmod(QFile::encodeName(folder.path()).constData(), 0700);
}
