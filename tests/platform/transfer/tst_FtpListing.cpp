#include "FileNames.h"
#include "FtpListing.h"
#include "PrintQt.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <QFile>
#include <QList>
#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using Format = FtpListing::Format;

/// What the process has in memory.
qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

QString rowsOf(Format format, const QByteArray &bytes, qsizetype step = 1 << 20)
{
    FtpListing listing(format);
    for (qsizetype at = 0; at < bytes.size(); at += step)
        listing.add(QByteArrayView(bytes).sliced(at, qMin(step, bytes.size() - at)));
    return listing.finish();
}

int codeFor(const QByteArray &part, int times)
{
    FtpListing listing(Format::Machine);
    try {
        for (int i = 0; i < times; ++i)
            listing.add(part);
    } catch (const TransferFailure &failure) {
        return failure.code;
    }
    return 0;
}

struct ListLine
{
    QByteArray text;
    QByteArray row; ///< empty for none
};

void expectRows(Format format, const QList<ListLine> &lines)
{
    QByteArray all;
    QString rows;
    for (const ListLine &line : lines) {
        const QString row =
            line.row.isEmpty() ? QString() : FileNames::fromBytes(line.row) + QStringLiteral("\r\n");
        EXPECT_EQ(rowsOf(format, line.text + "\r\n"), row) << line.text.constData();
        EXPECT_EQ(rowsOf(format, line.text), row) << line.text.constData();
        all += line.text + '\n';
        rows += row;
    }
    for (const qsizetype step : {1, 3, 50})
        EXPECT_EQ(rowsOf(format, all, step), rows) << step;
}

} // namespace

TEST(FtpListing, ReadsMachineLists)
{
    expectRows(Format::Machine, {
                                    {"type=file;size=1;modify=20260101000000; a.txt", "a.txt"},
                                    {"type=dir;modify=20260101000000; folder", "folder/"},
                                    {"Type=DIR; FOLDER", "FOLDER/"},
                                    {"size=1;type=dir;perm=el; late", "late/"},
                                    {"type=cdir;modify=1; .", "./"},
                                    {"type=pdir;modify=1; ..", "../"},
                                    {"type=OS.unix=slink:/target; link", "link"},
                                    {"type=file;  leading", " leading"},
                                    {"type=file; trailing ", "trailing "},
                                    {"type=file; two  blanks; and=this", "two  blanks; and=this"},
                                    {"type=file; a\"b", "a\"b"},
                                    {"type=file; a\\b", "a\\b"},
                                    {"type=file; l -> t", "l -> t"},
                                    {"type=file; caf\xe9", "caf\xe9"},
                                    {"type=file; caf\xc3\xa9", "caf\xc3\xa9"},
                                    {"type=file; a\rb", ""},
                                    {"mytype=dir;type=file; not a folder", "not a folder"},
                                    {" no facts", "no facts"},
                                    {"  leading", " leading"},
                                    {"no-fact name", ""},
                                    {"name", ""},
                                    {"type=file;", ""},
                                    {"", ""},
                                    {" ", ""},
                                });
}

TEST(FtpListing, ReadsUnixLists)
{
    expectRows(
        Format::Free,
        {
            {"total 12", ""},
            {"-rw-r--r--   1 owner    group          12 Jan  1  2026 a.txt", "a.txt"},
            {"-rw-r--r--   1 owner    group          12 Jan  1 12:34  leading", " leading"},
            {"-rw-r--r--   1 owner    group          12 Jan  1 12:34 trailing ", "trailing "},
            {"drwxr-xr-x   2 owner    group        4096 dec 31 23:59 folder", "folder/"},
            {"drwxr-xr-x   2 owner    group        4096 Dec 31 23:59 .", "./"},
            {"drwxr-xr-x   2 owner    group        4096 Dec 31 23:59 ..", "../"},
            {"lrwxrwxrwx   1 owner    group           5 Jan  1 12:34 link -> target", "link"},
            {"lrwxrwxrwx   1 owner    group           5 Jan  1 12:34 link -> target/", "link/"},
            {"-rw-r--r--   1 owner    group           5 Jan  1 12:34 no -> link", "no -> link"},
            {"-rw-r--r--   1 group          12 Jan  1  2026 no owner", "no owner"},
            {"-rw-r--r--   1 jan      100          2048 Jan 31 12:00 called jan", "called jan"},
            {"-rw-r--r--   1 1000     mar            31 Jan 31 12:00 of mar", "of mar"},
            {"-rw-r--r--   1 jan            20 Jan  1  2026 no group", "no group"},
            {"-rwsr-sr-t   1 owner    group          12 2026-01-31 12:34 iso", "iso"},
            {"-rw-r--r--   1 owner    group          12 Jan  1  2026 Jan  1  2026 x", "Jan  1  2026 x"},
            {"-rw-r--r--   1 owner    group          12 M\xe4r 31 12:34 foreign month", "foreign month"},
            {"-rw-r--r--   1 owner    group          12 Jan  1  2026 ", ""},
            {"-rw-r--r--", ""},
            {"-rw-r--r-- x", ""},
            {"d", ""},
            {"drwxr-xr-x", ""},
        });
}

TEST(FtpListing, ReadsDosAndEasyLists)
{
    expectRows(Format::Free, {
                                 {"02-18-05  03:02PM       <DIR>          folder", "folder/"},
                                 {"02-18-2005  03:02PM       <DIR>          two words", "two words/"},
                                 {"02-18-05  03:02PM                  318 a.txt", "a.txt"},
                                 {"02-18-05  03:02PM                  318  leading", " leading"},
                                 {"02-18-05  03:02PM                  318", ""},
                                 {"02-18-05  03:02PM                  abc x", ""},
                                 {"+i8388621.29609,m824255902,/,\tdev", "dev/"},
                                 {"+/,\tdev", "dev/"},
                                 {"+i8388621.44468,m839956783,r,s10376,\tRFCEPLF x", "RFCEPLF x"},
                                 {"+no tab", ""},
                                 {"+", ""},
                             });
}

TEST(FtpListing, LongLinesAreNoRowsAndCostNoMoreThanTheirLength)
{
    const QByteArray facts = QByteArray("fact=x;").repeated(100000);
    EXPECT_EQ(rowsOf(Format::Machine, facts + " name\r\ntype=file; next\r\n"), QStringLiteral("next\r\n"));
    EXPECT_EQ(
        rowsOf(Format::Machine, "type=file; " + QByteArray(1 << 20, 'x') + "\r\ntype=file; next\r\n", 4096),
        QStringLiteral("next\r\n"));
    EXPECT_EQ(rowsOf(Format::Free, QByteArray(1 << 20, ' ') + "\n-rw-r--r-- 1 o g 1 Jan 1 2026 next", 65536),
              QStringLiteral("next\r\n"));
    EXPECT_EQ(rowsOf(Format::Machine, "type=file; " + QByteArray(60000, 'x')).size(), 60002);
}

TEST(FtpListing, ALineWithoutAnEndIsNotKept)
{
    constexpr qint64 piece = 1 << 20;
    const QByteArray bytes(piece, 'x');
    FtpListing listing(Format::Machine);
    const qint64 before = residentBytes();
    for (int i = 0; i < 60; ++i)
        listing.add(bytes);
    EXPECT_LT(residentBytes() - before, 16 * piece);
}

TEST(FtpListing, ReadsManyRowsAndRefusesAnEndlessList)
{
    const QByteArray line = "type=file; name\r\n";
    EXPECT_EQ(rowsOf(Format::Machine, line.repeated(200000)), QStringLiteral("name\r\n").repeated(200000));
    EXPECT_EQ(codeFor(line.repeated(1000), 1000), 0);
    EXPECT_EQ(codeFor(line.repeated(1000), 1001), TransferError::InvalidResponse);
    EXPECT_EQ(codeFor(QByteArray(1 << 20, 'x') + '\n', 64), TransferError::InvalidResponse);
    EXPECT_EQ(codeFor(QByteArray(1 << 20, 'x') + '\n', 63), 0);
}

TEST(FtpListing, NoBytesUpsetItAndItsRowsAreWhole)
{
    const QByteArray seeds[] = {"type=dir;size=1; name\r\n",
                                "drwxr-xr-x 2 o g 4096 Dec 31 23:59 name -> x\r\n",
                                "02-18-05  03:02PM       <DIR>          name\r\n", "+i1.2,m3,/,\tname\r\n"};
    QRandomGenerator random(7);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = seeds[random.bounded(4)] + seeds[random.bounded(4)];
        for (int change = random.bounded(6); change >= 0; --change) {
            const qsizetype at = random.bounded(int(bytes.size()));
            switch (random.bounded(3)) {
            case 0:
                bytes[at] = char(random.bounded(256));
                break;
            case 1:
                bytes.remove(at, random.bounded(8));
                break;
            default:
                bytes.insert(at, bytes.mid(random.bounded(int(bytes.size())), 9));
            }
            if (bytes.isEmpty())
                bytes = " ";
        }
        const Format format = random.bounded(2) == 0 ? Format::Machine : Format::Free;
        const QString rows = rowsOf(format, bytes);
        EXPECT_EQ(rowsOf(format, bytes, 1), rows);
        EXPECT_EQ(rows.count(u'\r'), rows.count(u'\n'));
        EXPECT_EQ(rows.count(QStringLiteral("\r\n")), rows.count(u'\n'));
        EXPECT_LE(rows.count(u'\n'), bytes.count('\n') + 1);
    }
}
