#include "FakeAvahi.h"
#include "FoundComputers.h"
#include "MdnsSource.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

const QString workstations = QStringLiteral("_workstation._tcp");
const QString fileServers = QStringLiteral("_smb._tcp");

QStringList sorted(QStringList rows)
{
    rows.sort();
    return rows;
}

} // namespace

TEST(MdnsSource, WithoutAvahiItCannotAsk)
{
    const PrivateSystemBus bus;
    MdnsSource source;
    EXPECT_EQ(FoundComputers(source).end(), false);
}

TEST(MdnsSource, FindsTheHostsOfServices)
{
    FakeAvahi avahi;
    avahi.services = {{workstations,
                       {{QStringLiteral("hostb [00:11:22:33:44:55]"), QStringLiteral("hostb.local"),
                         QStringLiteral("127.0.0.2")}}},
                      {fileServers,
                       {{QStringLiteral("Pictures & <more>"), QStringLiteral("hostc.local"),
                         QStringLiteral("127.0.0.3")}}}};
    MdnsSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(sorted(found.rows()), QStringList({QStringLiteral("hostb.local 127.0.0.2"),
                                                 QStringLiteral("hostc.local 127.0.0.3")}));
}

TEST(MdnsSource, AHostThatDoesNotAnswerHasTheNameOfItsService)
{
    FakeAvahi avahi;
    avahi.services = {{workstations, {{QStringLiteral("hostb [00:11:22:33:44:55]"), {}, {}}}}};
    MdnsSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(found.rows(), QStringList(QStringLiteral("hostb ")));
}

TEST(MdnsSource, AnAddressElsewhereIsNotBelieved)
{
    FakeAvahi avahi;
    avahi.services = {
        {fileServers, {{QStringLiteral("a"), QStringLiteral("hostb.local"), QStringLiteral("203.0.113.9")}}}};
    MdnsSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(found.rows(), QStringList(QStringLiteral("hostb.local ")));
}

TEST(MdnsSource, AFloodOfServicesIsBounded)
{
    FakeAvahi avahi;
    for (int i = 0; i < 10000; ++i)
        avahi.services[fileServers].append({QStringLiteral("s%1").arg(i / 2),
                                            QStringLiteral("host%1.local").arg(i / 2),
                                            QStringLiteral("127.0.0.2")});
    MdnsSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(found.rows().size(), 1000);
}

TEST(MdnsSource, AnAvahiThatDiesEndsIt)
{
    FakeAvahi avahi;
    avahi.dies = true;
    MdnsSource source;
    EXPECT_EQ(FoundComputers(source).end(), true);
}

TEST(MdnsSource, AnAvahiThatFailsEndsIt)
{
    FakeAvahi avahi;
    avahi.fails = true;
    MdnsSource source;
    EXPECT_EQ(FoundComputers(source).end(), true);
}

TEST(MdnsSource, NothingIsLeftInAvahi)
{
    FakeAvahi avahi;
    {
        MdnsSource source;
        EXPECT_EQ(FoundComputers(source).end(), true);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return avahi.calls.count(QStringLiteral("Free")) == 2; }, 30000));
}
