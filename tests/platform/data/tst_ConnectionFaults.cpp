#include "AsUser.h"
#include "FileNames.h"
#include "FullDisk.h"
#include "ScratchDatabase.h"
#include "Transaction.h"

#include <QFile>
#include <sys/stat.h>

namespace {

struct ConnectionFaults : ScratchDatabase
{
    ConnectionFaults()
    {
        execute("create table T(name text)");
        for (int i = 0; i < 200; ++i)
            connection.execute(
                QStringLiteral("insert into T values('%1')").arg(QString(300, QChar(u'a' + i % 26))));
    }
    QString openError(const QByteArray &name)
    {
        return errorOf([&] {
            connection.open(QString::fromUtf8(folder.file(name)));
            column("select count(*) from T");
        });
    }
    QString rows() { return column("select count(*) from T").join(u' '); }
};

} // namespace

TEST_F(ConnectionFaults, AMissingFileIsNotMade)
{
    EXPECT_EQ(openError("none.db"), QStringLiteral("-2147467259 unable to open database file"));
    EXPECT_FALSE(connection.isOpen());
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(folder.file("none.db"))));
}

TEST_F(ConnectionFaults, AFolderIsNoDatabase)
{
    folder.addFolder("folder.db");
    EXPECT_EQ(openError("folder.db"), QStringLiteral("-2147467259 unable to open database file"));
}

TEST_F(ConnectionFaults, GarbageIsNoDatabase)
{
    folder.addFile("garbage.db", QByteArray(8192, 'x'));
    EXPECT_EQ(openError("garbage.db"), QStringLiteral("-2147467259 file is not a database"));
}

TEST_F(ConnectionFaults, AnEmptyFileHasNoTables)
{
    folder.addFile("empty.db");
    EXPECT_EQ(openError("empty.db"), QStringLiteral("-2147217900 no such table: T"));
}

TEST_F(ConnectionFaults, ATruncatedFileIsDamaged)
{
    connection.close();
    ASSERT_EQ(::truncate(folder.file("a.db").constData(), 3 * 4096), 0);
    EXPECT_EQ(openError("a.db"), QStringLiteral("-2147467259 database disk image is malformed"));
}

TEST_F(ConnectionFaults, DamageInAnyPageIsFound)
{
    EXPECT_EQ(connection.damage(), QString());
    connection.close();
    QFile file(path());
    for (qint64 page = 1; page < file.size() / 4096; ++page) {
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(page * 4096);
        const QByteArray before = file.read(4096);
        file.seek(page * 4096);
        file.write(QByteArray(4096, '\x7F'));
        file.close();
        const QString found = errorOf([&] {
            connection.open(path());
            EXPECT_NE(connection.damage(), QString()) << page;
        });
        connection.close();
        EXPECT_TRUE(found == u"none" || found.contains(QLatin1String("malformed"))) << found.toStdString();
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(page * 4096);
        file.write(before);
        file.close();
    }
    connection.open(path());
    EXPECT_EQ(connection.damage(), QString());
}

TEST_F(ConnectionFaults, AFileThatMayOnlyBeReadIsReadAndNotWritten)
{
    connection.close();
    const AsUser user(folder.path());
    ASSERT_EQ(::chmod(folder.file("a.db").constData(), 0400), 0);
    connection.open(path());
    EXPECT_EQ(rows(), QStringLiteral("200"));
    const QString refused = QStringLiteral("-2147467259 attempt to write a readonly database");
    EXPECT_EQ(errorOf([&] { execute("insert into T values('x')"); }), refused);
    EXPECT_EQ(rows(), QStringLiteral("200"));
}

TEST_F(ConnectionFaults, AFolderThatMayOnlyBeReadLetsNothingBeWritten)
{
    connection.close();
    const AsUser user(folder.path());
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0500), 0);
    connection.open(path());
    EXPECT_EQ(errorOf([&] { execute("insert into T values('x')"); }),
              QStringLiteral("-2147467259 attempt to write a readonly database"));
    EXPECT_EQ(rows(), QStringLiteral("200"));
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0700), 0);
}

TEST_F(ConnectionFaults, AFileWithoutPermissionCannotBeOpened)
{
    connection.close();
    const AsUser user(folder.path());
    ASSERT_EQ(::chmod(folder.file("a.db").constData(), 0), 0);
    EXPECT_EQ(openError("a.db"), QStringLiteral("-2147467259 unable to open database file"));
}

TEST_F(ConnectionFaults, AFullDiskLeavesTheFileAsItWas)
{
    QString error;
    {
        const FullDisk disk(rlim_t(QFile(path()).size()));
        error = errorOf([&] {
            Transaction transaction(connection);
            for (int i = 0; i < 200; ++i)
                connection.execute(QStringLiteral("insert into T values('%1')").arg(QString(300, u'b')));
            transaction.commit();
        });
    }
    EXPECT_EQ(error, QStringLiteral("-2147467259 disk I/O error"));
    EXPECT_FALSE(connection.isInTransaction());
    EXPECT_EQ(rows(), QStringLiteral("200"));
    EXPECT_EQ(connection.damage(), QString());
    execute("insert into T values('x')");
    EXPECT_EQ(rows(), QStringLiteral("201"));
}

TEST_F(ConnectionFaults, AnotherWriterIsWaitedForAndThenReported)
{
    Connection other;
    other.open(path());
    Transaction transaction(other);
    EXPECT_EQ(errorOf([&] { execute("insert into T values('x')"); }),
              QStringLiteral("-2147467259 database is locked"));
    EXPECT_EQ(rows(), QStringLiteral("200"));
    transaction.commit();
    execute("insert into T values('x')");
    EXPECT_EQ(rows(), QStringLiteral("201"));
}

TEST_F(ConnectionFaults, ANameOfAnyBytesIsOpened)
{
    const QByteArray name = folder.file("caf\xE9?%20#.db");
    ASSERT_TRUE(::rename(folder.file("a.db").constData(), name.constData()) == 0);
    connection.open(FileNames::fromBytes(name));
    EXPECT_EQ(rows(), QStringLiteral("200"));
}
