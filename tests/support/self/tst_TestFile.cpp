#include "PrintQt.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

/// This program again, listing the tests of \a file.
struct TestFileTest : testing::Test
{
    void list(const QString &file)
    {
        program.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--file=") + file, QStringLiteral("--gtest_list_tests")});
        ASSERT_TRUE(program.waitForFinished(60000));
        listed = program.readAllStandardOutput();
    }

    QProcess program;
    QByteArray listed;
};

} // namespace

TEST_F(TestFileTest, LeavesTheTestsOfTheFile)
{
    list(QStringLiteral("tst_HostileNames.cpp"));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(listed.contains("HaveNamesOfTheirOwn")) << listed.constData();
    EXPECT_TRUE(listed.contains("KnowsWhetherATextHoldsIt/Markup")) << listed.constData();
    EXPECT_FALSE(listed.contains("TestFileTest")) << listed.constData();
}

TEST_F(TestFileTest, AFileWithoutTestsIsAFailure)
{
    list(QStringLiteral("tst_None.cpp"));
    EXPECT_NE(program.exitCode(), 0);
    EXPECT_EQ(listed, QByteArray());
}
