#include "IdleStatements.h"

#include "PreparedStatement.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

struct IdleStatementsTest : testing::Test
{
    IdleStatementsTest() { ::sqlite3_open(":memory:", &database); }
    ~IdleStatementsTest() override { ::sqlite3_close(database); }

    std::unique_ptr<PreparedStatement> prepare(const QString &text) const
    {
        sqlite3_stmt *statement = nullptr;
        ::sqlite3_prepare_v2(database, qUtf8Printable(text), -1, &statement, nullptr);
        return std::make_unique<PreparedStatement>(statement);
    }
    void keep(IdleStatements &idle, const QString &text) const { idle.keep(text, prepare(text)); }
    int inTheEngine() const
    {
        int count = 0;
        for (auto *at = ::sqlite3_next_stmt(database, nullptr); at; at = ::sqlite3_next_stmt(database, at))
            ++count;
        return count;
    }
    static QString text(int number) { return QStringLiteral("select %1").arg(number); }

    sqlite3 *database = nullptr;
};

} // namespace

TEST_F(IdleStatementsTest, AKeptStatementIsTakenOnce)
{
    IdleStatements idle;
    auto one = prepare(text(1));
    sqlite3_stmt *const handle = one->handle();
    idle.keep(text(1), std::move(one));
    keep(idle, text(2));
    const auto taken = idle.take(text(1));
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->handle(), handle);
    EXPECT_FALSE(idle.take(text(1)));
    EXPECT_FALSE(idle.take(text(3)));
    EXPECT_TRUE(idle.take(text(2)));
}

TEST_F(IdleStatementsTest, ThoseThatWereUsedLastAreKept)
{
    IdleStatements idle;
    for (int number = 0; number < IdleStatements::most; ++number)
        keep(idle, text(number));
    idle.keep(text(0), idle.take(text(0)));
    keep(idle, text(IdleStatements::most));
    EXPECT_EQ(inTheEngine(), IdleStatements::most);
    EXPECT_FALSE(idle.take(text(1)));
    EXPECT_TRUE(idle.take(text(0)));
    EXPECT_TRUE(idle.take(text(2)));
    EXPECT_TRUE(idle.take(text(IdleStatements::most)));
}

TEST_F(IdleStatementsTest, AKeptStatementHoldsNoRowAndNoValue)
{
    const QString text = QStringLiteral("select ?");
    auto statement = prepare(text);
    ::sqlite3_bind_int(statement->handle(), 1, 7);
    ASSERT_EQ(::sqlite3_step(statement->handle()), SQLITE_ROW);
    IdleStatements idle;
    idle.keep(text, std::move(statement));
    const auto taken = idle.take(text);
    EXPECT_EQ(::sqlite3_stmt_busy(taken->handle()), 0);
    ASSERT_EQ(::sqlite3_step(taken->handle()), SQLITE_ROW);
    EXPECT_EQ(::sqlite3_column_type(taken->handle(), 0), SQLITE_NULL);
}

TEST_F(IdleStatementsTest, AllGoWithIt)
{
    {
        IdleStatements idle;
        keep(idle, text(1));
        keep(idle, text(2));
        EXPECT_EQ(inTheEngine(), 2);
    }
    EXPECT_EQ(inTheEngine(), 0);
}
