#include "Snapshot.h"

#include "ScratchDatabase.h"

#include <optional>

namespace {

struct SnapshotTest : ScratchDatabase
{
    SnapshotTest() { execute("create table T(id integer primary key)"); }
};

} // namespace

TEST_F(SnapshotTest, NobodyWritesUntilItEnds)
{
    Connection other;
    other.open(path());
    other.execute(QStringLiteral("pragma busy_timeout=0"));
    std::optional<Snapshot> snapshot(connection);
    EXPECT_EQ(column("select count(*) from T"), QStringList(QStringLiteral("0")));
    EXPECT_EQ(errorOf([&] { other.execute(QStringLiteral("insert into T values(1)")); }),
              QStringLiteral("-2147467259 database is locked"));
    snapshot.reset();
    EXPECT_FALSE(connection.isInTransaction());
    other.execute(QStringLiteral("insert into T values(1)"));
    EXPECT_EQ(column("select count(*) from T"), QStringList(QStringLiteral("1")));
}
