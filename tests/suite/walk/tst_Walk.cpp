#include "Walker.h"

#include "Forms.h"
#include "Look.h"
#include "QtMessages.h"
#include "UrlCatcher.h"

#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// No program of the desktop is found, so that nothing is started by accident.
struct Walk : testing::Test
{
    QTemporaryDir runtime;
    UrlCatcher urls;
    Walk()
    {
        Look::apply(); // the toolbar is wider without
        QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        qputenv("PATH", "/nonexistent");
        qputenv("XDG_DATA_DIRS", "/nonexistent");
    }
};

void nothing(RunningSuite &)
{}

void document(RunningSuite &suite)
{
    suite.frame().LoadNewDoc();
    suite.text().setText(QStringLiteral("some words"));
    suite.text().setSelLength(4);
}

void calculator(RunningSuite &suite)
{
    Forms::refer(QStringLiteral("frmCalculator")).showModeless();
    QTest::qWait(0);
    suite.frame().checkForDocument();
}

void ftp(RunningSuite &suite)
{
    Forms::refer(QStringLiteral("frmFTP")).showModeless();
    QTest::qWait(0);
    suite.frame().checkForDocument();
}

void addressBook(RunningSuite &suite)
{
    Forms::refer(QStringLiteral("frmAddressBook")).showModeless();
    QTest::qWait(0);
    suite.frame().checkForDocument();
}

} // namespace

TEST_F(Walk, EveryMenuItemInADocument)
{
    Walker walker(document);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuFileExit")));
    EXPECT_GE(walker.steps().size(), 60);
}

TEST_F(Walk, EveryMenuItemWithNothingOpen)
{
    Walker walker(nothing);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuFileExit")));
}

TEST_F(Walk, EveryMenuItemInTheCalculator)
{
    Walker walker(calculator);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 7);
}

TEST_F(Walk, EveryMenuItemInTheFtpWindow)
{
    Walker walker(ftp);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 7);
}

TEST_F(Walk, EveryMenuItemInTheAddressBook)
{
    Walker walker(addressBook);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 16);
}

TEST_F(Walk, EveryButtonInADocument)
{
    Walker walker(document);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList());
    EXPECT_GT(walker.steps().size(), 50);
}

TEST_F(Walk, EveryButtonWithNothingOpen)
{
    Walker walker(nothing);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
}

TEST_F(Walk, EveryButtonInTheCalculator)
{
    Walker walker(calculator);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
}
