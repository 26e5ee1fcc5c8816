#include "DataError.h"
#include "ErrorNumberOf.h"
#include "ScratchDatabase.h"
#include "Statement.h"

TEST_F(ScratchDatabase, RelationsAreEnforcedOnEachConnection)
{
    execute("create table A(id integer primary key)");
    execute("create table B(id integer references A(id) on delete cascade)");
    for (int i = 0; i < 2; ++i) {
        connection.open(path());
        EXPECT_EQ(errorOf([&] { execute("insert into B values(7)"); }),
                  QStringLiteral("-2147467259 FOREIGN KEY constraint failed"));
    }
    execute("insert into A values(1)");
    execute("insert into B values(1)");
    execute("delete from A");
    EXPECT_EQ(column("select id from B"), QStringList());
}

TEST_F(ScratchDatabase, LikeTakesPercentSignsAndNoCaseOfPlainLetters)
{
    execute("create table T(name text)");
    execute("insert into T values('Eve'), ('eve'), ('\u00C9ric'), ('100%'), ('Steve')");
    EXPECT_EQ(column("select name from T where name like 'E%'").join(u' '), QStringLiteral("Eve eve"));
    EXPECT_EQ(column("select name from T where name like '%[%]'"), QStringList());
}

TEST_F(ScratchDatabase, DayAndMonthReadDates)
{
    execute("create table T(id integer, born datetime)");
    execute("insert into T values(1,'1999-09-05'), (2,'05-Sep-1980'), (3,null), (4,'2000-02-29 12:00'), "
            "(5,'x'), (6,7)");
    EXPECT_EQ(column("select id from T where day(born) =5 and month(born) =9").join(u' '),
              QStringLiteral("1 2"));
    EXPECT_EQ(column("select day(born) from T").join(u' '), QStringLiteral("5 5 NULL 29 NULL NULL"));
    EXPECT_EQ(column("select MONTH(born) from T").join(u' '), QStringLiteral("9 9 NULL 2 NULL NULL"));
}

TEST_F(ScratchDatabase, AClosedConnectionRefusesEverything)
{
    connection.close();
    EXPECT_FALSE(connection.isOpen());
    const auto expectRefused = [](auto &&step) {
        EXPECT_EQ(errorNumberOf(step), DataError::ClosedConnection);
    };
    expectRefused([&] { execute("select 1"); });
    expectRefused([&] { connection.isInTransaction(); });
    expectRefused([&] { connection.damage(); });
    expectRefused([&] { column("select 1"); });
    connection.close();
}

TEST_F(ScratchDatabase, AStatementIsPreparedOnceForAFile)
{
    const QString statement = QStringLiteral("select * from T");
    execute("create table T(n)");
    connection.prepare(statement)->finish();
    execute("drop table T");
    const auto kept = connection.prepare(statement); // which nobody has read again yet
    EXPECT_EQ(errorOf([&] { kept->step(); }).section(u' ', 0, 0).toInt(), DataError::RejectedStatement);
    connection.open(path());
    EXPECT_EQ(errorNumberOf([&] { connection.prepare(statement); }), DataError::RejectedStatement);
}

TEST_F(ScratchDatabase, TheSameStatementCanRunTwiceAtATime)
{
    const QString statement = QStringLiteral("select 1 union select 2");
    connection.prepare(statement)->finish();
    const auto one = connection.prepare(statement);
    const auto two = connection.prepare(statement);
    one->step();
    one->step();
    two->step();
    EXPECT_EQ(one->integer(0), 2);
    EXPECT_EQ(two->integer(0), 1);
}

TEST_F(ScratchDatabase, OpeningAgainClosesTheEarlierFile)
{
    execute("create table First(id)");
    folder.addFile("b.db");
    connection.open(QString::fromUtf8(folder.file("b.db")));
    EXPECT_EQ(column("select name from sqlite_master"), QStringList());
}

TEST_F(ScratchDatabase, ACopyIsTheSameAndSound)
{
    execute("create table T(name text)");
    execute("insert into T values('a')");
    const QString copy = QString::fromUtf8(folder.file("copy.db"));
    folder.addFile("copy.db", "old");
    ASSERT_EQ(::unlink(folder.file("copy.db").constData()), 0);
    connection.copyTo(copy);
    execute("insert into T values('b')");
    connection.copyTo(copy);
    connection.open(copy);
    EXPECT_EQ(column("select name from T").join(u' '), QStringLiteral("a b"));
    EXPECT_EQ(connection.damage(), QString());
}

TEST_F(ScratchDatabase, ACopyThatCannotBeMadeIsAnError)
{
    EXPECT_EQ(errorOf([&] { connection.copyTo(QStringLiteral("/none/b.db")); }),
              QStringLiteral("-2147467259 unable to open database file"));
    folder.addFile("garbage.db", QByteArray(5000, 'x'));
    EXPECT_EQ(errorOf([&] { connection.copyTo(QString::fromUtf8(folder.file("garbage.db"))); }),
              QStringLiteral("-2147467259 file is not a database"));
}
