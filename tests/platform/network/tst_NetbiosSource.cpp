#include "FoundComputers.h"
#include "LocalNetwork.h"
#include "NetbiosReport.h"
#include "NetbiosSource.h"
#include "PrintQt.h"
#include "ScratchPrograms.h"

#include <QNetworkInterface>
#include <csignal>
#include <gtest/gtest.h>

namespace {

const QByteArray report = "querying * on 10.78.0.255\n"
                          "10.78.0.2 *<00>\n"
                          "Looking up status of 10.78.0.2\n"
                          "\tHOSTB           <00> -         B <ACTIVE> \n"
                          "\tHOSTB           <03> -         B <ACTIVE> \n"
                          "\tHOSTB           <20> -         B <ACTIVE> \n"
                          "\tQUILL           <00> - <GROUP> B <ACTIVE> \n"
                          "\tQUILL           <1e> - <GROUP> B <ACTIVE> \n"
                          "\n"
                          "\tMAC Address = 00-00-00-00-00-00\n"
                          "\n"
                          "Looking up status of 10.78.0.3\n"
                          "\tHOSTC           <00> -         H <ACTIVE> \n";

QStringList rowsOf(const QList<Computer> &computers)
{
    QStringList rows;
    for (const Computer &computer : computers)
        rows << computer.name + u' ' + computer.address;
    return rows;
}

const QStringList reported = {QStringLiteral("HOSTB 10.78.0.2"), QStringLiteral("HOSTC 10.78.0.3")};

struct NetbiosSourceTest : testing::Test
{
    void SetUp() override
    {
        if (LocalNetwork::interfaces().isEmpty())
            GTEST_SKIP() << "this computer has no network";
    }
    ScratchPrograms programs;
};

} // namespace

TEST(NetbiosReport, ReadsTheComputersAndTheirAddresses)
{
    EXPECT_EQ(rowsOf(NetbiosReport().read(report)), reported);
}

TEST(NetbiosReport, LinesMayComeInPieces)
{
    NetbiosReport reader;
    QList<Computer> computers;
    for (const char byte : report)
        computers += reader.read(QByteArray(1, byte));
    EXPECT_EQ(rowsOf(computers), reported);
}

TEST_F(NetbiosSourceTest, FindsWhatTheProgramPrints)
{
    programs.addRecorder("recorder");
    programs.add("nmblookup", "\"$folder/recorder\" \"$@\"\ncat <<'END'\n" + report + "END\n");
    NetbiosSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(found.rows(), reported);
    EXPECT_EQ(programs.content("recorder.calls"), QByteArray("-S\n*\n"));
}

TEST_F(NetbiosSourceTest, TakesLinesBeforeTheEndAndEndsTheProgramWithItself)
{
    programs.add("nmblookup", "echo $$ >\"$folder/pid\"\ncat <<'END'\n" + report + "END\nexec sleep 1000\n");
    auto source = std::make_unique<NetbiosSource>();
    const FoundComputers found(*source);
    EXPECT_TRUE(QTest::qWaitFor([&] { return found.rows() == reported; }, 30000));
    const pid_t program = programs.content("pid").toInt();
    ASSERT_GT(program, 0);
    source.reset();
    EXPECT_EQ(::kill(program, 0), -1);
}

TEST_F(NetbiosSourceTest, AFloodIsEnded)
{
    programs.add("nmblookup", "exec yes '" + QByteArray(100, 'x') + "'\n");
    NetbiosSource source;
    const FoundComputers found(source);
    EXPECT_EQ(found.end(), true);
    EXPECT_EQ(found.rows(), QStringList());
}

TEST_F(NetbiosSourceTest, WithoutTheProgramItCannotAsk)
{
    const ScratchPrograms none(ScratchPrograms::Others::Missing);
    NetbiosSource source;
    EXPECT_EQ(FoundComputers(source).end(), false);
}
