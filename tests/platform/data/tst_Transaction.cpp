#include "Transaction.h"

#include "ScratchDatabase.h"

namespace {

struct TransactionTest : ScratchDatabase
{
    TransactionTest()
    {
        execute("create table T(id integer primary key)");
        other.open(path());
    }

    /// Writes 1, then fails in writing it again.
    void fail(Transaction::Unfinished unfinished)
    {
        Transaction transaction(connection, unfinished);
        execute("insert into T values(1)");
        execute("insert into T values(1)");
        transaction.commit();
    }
    /// Writes 1, then many rows for which there is no room.
    void fillUp()
    {
        const Transaction transaction(connection, Transaction::Unfinished::Keep);
        execute("insert into T values(1)");
        try {
            execute("insert into T with recursive N(i) as (select 2 union all select i+1 from N "
                    "where i<100000) select i from N");
        } catch (const RuntimeError &) {
            connection.execute(maximumPages(1000)); // the end of the transaction has room again
            throw;
        }
    }
    static QString maximumPages(int count) { return QStringLiteral("pragma max_page_count=%1").arg(count); }
    QString seenByOthers()
    {
        Recordset rows;
        rows.open(QStringLiteral("select count(*) from T"), other);
        return rows.field(0).text();
    }

    Connection other;
};

const QString notUnique = QStringLiteral("-2147467259 UNIQUE constraint failed: T.id");

} // namespace

TEST_F(TransactionTest, OthersSeeNothingBeforeTheEnd)
{
    Transaction transaction(connection);
    execute("insert into T values(1)");
    execute("insert into T values(2)");
    EXPECT_TRUE(connection.isInTransaction());
    EXPECT_EQ(seenByOthers(), QStringLiteral("0"));
    transaction.commit();
    EXPECT_FALSE(connection.isInTransaction());
    EXPECT_EQ(seenByOthers(), QStringLiteral("2"));
}

TEST_F(TransactionTest, AFailureDiscardsWhatWasWritten)
{
    EXPECT_EQ(errorOf([&] { fail(Transaction::Unfinished::Discard); }), notUnique);
    EXPECT_FALSE(connection.isInTransaction());
    EXPECT_EQ(seenByOthers(), QStringLiteral("0"));
}

TEST_F(TransactionTest, AFailureKeepsWhatWasWrittenWhereThatIsWanted)
{
    EXPECT_EQ(errorOf([&] { fail(Transaction::Unfinished::Keep); }), notUnique);
    EXPECT_FALSE(connection.isInTransaction());
    EXPECT_EQ(seenByOthers(), QStringLiteral("1"));
}

TEST_F(TransactionTest, NothingIsKeptOnceTheDiskWasFull)
{
    connection.execute(maximumPages(column("pragma page_count").constFirst().toInt() + 1));
    EXPECT_EQ(errorOf([&] { fillUp(); }), QStringLiteral("-2147467259 database or disk is full"));
    EXPECT_FALSE(connection.isInTransaction());
    EXPECT_EQ(seenByOthers(), QStringLiteral("0"));
}

TEST_F(TransactionTest, ALaterTransactionCanBegin)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(errorOf([&] { fail(Transaction::Unfinished::Discard); }), notUnique);
    Transaction transaction(connection);
    transaction.commit();
}

TEST_F(TransactionTest, OnlyOneCanBeOpen)
{
    const Transaction transaction(connection);
    EXPECT_EQ(errorOf([&] { const Transaction second(connection); }),
              QStringLiteral("-2147217900 cannot start a transaction within a transaction"));
    EXPECT_TRUE(connection.isInTransaction());
}
