#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "FtpProfileFile.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchProgramFolder.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

struct FtpProfileFileTest : testing::Test
{
    ScratchProgramFolder folder;
    FtpProfileFile::Table table;

    void put(const QByteArray &content) const { folder.addFile("ftpprof.dat", content); }
    QString path() const { return folder.path() + QStringLiteral("/ftpprof.dat"); }
    QByteArray content() const { return Files::read(path()); }
    int read() { return FtpProfileFile::read(table); }
    QString record(int index) const { return recordOf(table[index]); }
    static QString recordOf(const FtpProfile &row)
    {
        return QStringList({QString::number(row.number), row.account, row.server, row.userName, row.password,
                            row.trailing})
            .join(u'|');
    }
    static mode_t modeOf(const QByteArray &path)
    {
        struct stat state = {};
        EXPECT_EQ(::lstat(path.constData(), &state), 0);
        return state.st_mode & 07777;
    }
    static QByteArray lines(int count)
    {
        QByteArray text;
        for (int i = 0; i < count; ++i)
            text += QByteArray::number(i) + ",n" + QByteArray::number(i) + ",,,,\r\n";
        return text;
    }
};

} // namespace

TEST_F(FtpProfileFileTest, ReadsTheSixFields)
{
    put("5,Mirror,ftp.example.org,tester,se cret,extra\r\n");
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(record(0), QStringLiteral("5|Mirror|ftp.example.org|tester|se cret|extra"));
    const FtpProfile first = FtpProfileFile::readFirst();
    EXPECT_EQ(first.number, 5);
    EXPECT_EQ(first.account + first.server + first.userName + first.password + first.trailing,
              QStringLiteral("Mirrorftp.example.orgtesterse cretextra"));
}

TEST_F(FtpProfileFileTest, ALineWithTooFewFieldsTakesTheNextOnes)
{
    put("0,a,b,c\r\n1,d,e,f,g,h\r\n2,i,j,k,l,m\r\n");
    EXPECT_EQ(read(), 3);
    EXPECT_EQ(record(0), QStringLiteral("0|a|b|c|1|d"));
    EXPECT_EQ(record(1), QStringLiteral("0|f|g|h|2|i"));
    EXPECT_EQ(record(2), QStringLiteral("0|k|l|m||")); // what the file lacks is empty
}

TEST_F(FtpProfileFileTest, ALineWithTooManyFieldsShiftsTheNextOnes)
{
    put("0,a,b,c,d,e,more\r\n1,f,g,h,i,j\r\n");
    EXPECT_EQ(read(), 3);
    EXPECT_EQ(record(1), QStringLiteral("0|1|f|g|h|i"));
    EXPECT_EQ(record(2), QStringLiteral("0|||||"));
    EXPECT_EQ(table[2].number, 0);
}

TEST_F(FtpProfileFileTest, NumbersAreThoseOf32Bits)
{
    put("-7,,,,,\r\n2147483647,,,,,\r\n2147483648,,,,,\r\nabc,,,,,\r\n12abc,,,,,\r\n1E300,,,,,\r\n,,,,,\r\n");
    EXPECT_EQ(read(), 7);
    const int expected[] = {-7, 2147483647, 0, 0, 12, 0, 0};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(table[i].number, expected[i]) << i;
}

TEST_F(FtpProfileFileTest, AHundredRecordsAreRead)
{
    put(lines(99));
    EXPECT_EQ(read(), 99);
    put(lines(100));
    EXPECT_EQ(read(), 100);
    put(lines(102));
    EXPECT_EQ(read(), 100);
    EXPECT_EQ(table[99].account, QStringLiteral("n99"));
    EXPECT_EQ(table[100].account, QString());
}

TEST_F(FtpProfileFileTest, WhatIsNotReadStays)
{
    put(lines(100));
    read();
    put("0,new,,,,\r\n");
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(table[0].account, QStringLiteral("new"));
    EXPECT_EQ(table[1].account, QStringLiteral("n1"));
}

TEST_F(FtpProfileFileTest, AnEmptyFileHasNoRecord)
{
    put("");
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(FtpProfileFile::readFirst().server, QString());
}

TEST_F(FtpProfileFileTest, WritesEachRecordUnderItsPlace)
{
    put("");
    table[0] = {42,
                QStringLiteral("Mirror"),
                QStringLiteral("ftp.example.org"),
                QStringLiteral("me"),
                QStringLiteral("pass, word"),
                QStringLiteral("extra")};
    table[100].account = QStringLiteral("last");
    FtpProfileFile::write(table);
    QByteArray expected = "0,Mirror,ftp.example.org,me,pass, word,extra\r\n";
    for (int i = 1; i < 100; ++i)
        expected += QByteArray::number(i) + ",,,,,\r\n";
    expected += "100,last,,,,\r\n";
    EXPECT_EQ(content(), expected);
}

TEST_F(FtpProfileFileTest, IsInWindows1252)
{
    put("0,M\xFCnchen \x80,,,,\r\n");
    read();
    EXPECT_EQ(table[0].account, QStringLiteral("M\u00FCnchen \u20AC"));
    table[0].server = QStringLiteral("\u043C.example");
    FtpProfileFile::write(table);
    EXPECT_TRUE(content().startsWith("0,M\xFCnchen \x80,?.example,,,\r\n1,"));
}

TEST_F(FtpProfileFileTest, GarbageIsReadAndWrittenBack)
{
    QByteArray garbage;
    for (int i = 0; i < 100000; ++i)
        garbage += char(i * 7919 >> 3);
    put(garbage);
    EXPECT_GE(read(), 1);
    FtpProfileFile::write(table);
    FtpProfileFile::Table written = std::exchange(table, {});
    EXPECT_EQ(read(), FtpProfileFile::readable);
    for (int i = 0; i < FtpProfileFile::readable; ++i) {
        written[i].number = i;
        EXPECT_EQ(record(i), recordOf(written[i]));
    }
}

TEST_F(FtpProfileFileTest, OnlyTheUserMayReadIt)
{
    put("");
    ASSERT_EQ(::chmod(folder.file("ftpprof.dat").constData(), 0644), 0);
    FtpProfileFile::write(table);
    EXPECT_EQ(modeOf(folder.file("ftpprof.dat")), 0600u);
    ASSERT_EQ(::unlink(folder.file("ftpprof.dat").constData()), 0);
    FtpProfileFile::write(table);
    EXPECT_EQ(modeOf(folder.file("ftpprof.dat")), 0600u);
}

TEST_F(FtpProfileFileTest, ALinkStaysOne)
{
    folder.addFile("real.dat", "0,a,,,,\r\n");
    folder.addLink("ftpprof.dat", "real.dat");
    EXPECT_EQ(read(), 1);
    FtpProfileFile::write(table);
    struct stat state = {};
    ASSERT_EQ(::lstat(folder.file("ftpprof.dat").constData(), &state), 0);
    EXPECT_TRUE(S_ISLNK(state.st_mode));
    EXPECT_EQ(Files::read(folder.path() + QStringLiteral("/real.dat")).count('\n'), 101);
}

TEST_F(FtpProfileFileTest, AMissingFileIsAnError)
{
    EXPECT_EQ(errorNumberOf([&] { read(); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorNumberOf([] { FtpProfileFile::readFirst(); }), ErrorNumber::FileNotFound);
    folder.addFolder("ftpprof.dat");
    EXPECT_EQ(errorNumberOf([&] { read(); }), ErrorNumber::PathFileAccessError);
}

TEST_F(FtpProfileFileTest, AFileThatMayNotBeTouchedStays)
{
    put("0,a,,,,\r\n");
    const AsUser user(folder.path());
    ASSERT_EQ(::chmod(folder.file("ftpprof.dat").constData(), 0400), 0);
    EXPECT_EQ(errorNumberOf([&] { FtpProfileFile::write(table); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(content(), "0,a,,,,\r\n");
    ASSERT_EQ(::chmod(folder.file("ftpprof.dat").constData(), 0), 0);
    EXPECT_EQ(errorNumberOf([&] { read(); }), ErrorNumber::PermissionDenied);
}

TEST_F(FtpProfileFileTest, AFullDiskLeavesTheOldFile)
{
    put("0,a,,,,\r\n");
    {
        const FullDisk full(100);
        EXPECT_EQ(errorNumberOf([&] { FtpProfileFile::write(table); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(content(), "0,a,,,,\r\n");
}
