#include "Walker.h"

#include "Forms.h"
#include "Globals.h"
#include "Look.h"
#include "Pause.h"
#include "QtMessages.h"
#include "TreeView.h"
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
        setPause([](int) {});
        Look::apply(); // the toolbar is wider without
        QtMessages::expect(QStringLiteral("QPageSetupDialog: Cannot be used on non-native printers"));
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        qputenv("PATH", "/nonexistent");
        qputenv("XDG_DATA_DIRS", "/nonexistent");
    }
    ~Walk() override { setPause({}); }
};

void nothing(RunningSuite &)
{}

void document(RunningSuite &suite)
{
    suite.frame().LoadNewDoc();
    suite.text().setText(QStringLiteral("some words"));
    suite.text().setSelLength(4);
}

void openTool(RunningSuite &suite, const QString &name)
{
    Form &tool = Forms::refer(name);
    tool.showModeless();
    ASSERT_TRUE(QTest::qWaitFor([&] { return suite.frame().ActiveForm() == &tool && tool.isVisible(); }));
    suite.frame().checkForDocument();
}

void calculator(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmCalculator"));
}

void ftp(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmFTP"));
}

void addressBook(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmAddressBook"));
}

/// Its letters need contacts that they narrow down.
void addressBookWithContacts(RunningSuite &suite)
{
    addressBook(suite);
    const auto &tree = suite.active().member<TreeView>(QStringLiteral("Tv"));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree.visualRect(tree.model()->index(0, 0)).center());
}

void zip(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmZip"));
}

void unzip(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmUnzip"));
}

void imageViewer(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmImageMain"));
}

void help(RunningSuite &suite)
{
    openTool(suite, QStringLiteral("frmHelpContents"));
}

void diallerSetUp(RunningSuite &suite)
{
    diallerMode = QStringLiteral("Setup");
    openTool(suite, QStringLiteral("frmdialler"));
}

void diallerInUse(RunningSuite &suite)
{
    diallerMode = QStringLiteral("Use");
    openTool(suite, QStringLiteral("frmdialler"));
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

TEST_F(Walk, EveryMenuItemInTheDialler)
{
    Walker walker(diallerInUse);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 9);
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

TEST_F(Walk, EveryMenuItemInTheZipWindow)
{
    Walker walker(zip);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 12);
}

TEST_F(Walk, EveryMenuItemInTheUnzipWindow)
{
    Walker walker(unzip);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 11);
}

TEST_F(Walk, EveryMenuItemInTheImageViewer)
{
    Walker walker(imageViewer);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 42);
}

TEST_F(Walk, EveryMenuItemInTheHelp)
{
    Walker walker(help);
    walker.chooseEveryMenuItem();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.ends(), QStringList(QStringLiteral("mnuexittools")));
    EXPECT_EQ(walker.steps().size(), 9);
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

TEST_F(Walk, EveryButtonInTheFtpWindow)
{
    Walker walker(ftp);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_GT(walker.steps().size(), 30);
}

TEST_F(Walk, EveryButtonInTheAddressBook)
{
    Walker walker(addressBook);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_GT(walker.steps().size(), 30);
}

TEST_F(Walk, EveryButtonInTheZipWindow)
{
    Walker walker(zip);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_GT(walker.steps().size(), 30);
}

TEST_F(Walk, EveryButtonInTheUnzipWindow)
{
    Walker walker(unzip);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_GT(walker.steps().size(), 30);
}

TEST_F(Walk, EveryButtonInTheImageViewer)
{
    Walker walker(imageViewer);
    walker.pressEveryButton();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_GT(walker.steps().size(), 30);
}

TEST_F(Walk, EveryButtonOfTheCalculatorItself)
{
    Walker walker(calculator);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 21);
}

TEST_F(Walk, EveryButtonOfTheDiallerItself)
{
    Walker inUse(diallerInUse);
    inUse.pressEveryButtonOfTheTool();
    EXPECT_EQ(inUse.errors(), QStringList());
    EXPECT_EQ(inUse.steps().size(), 16);
    Walker setUp(diallerSetUp);
    setUp.pressEveryButtonOfTheTool();
    EXPECT_EQ(setUp.errors(), QStringList());
    EXPECT_EQ(setUp.steps().size(), 4);
}

TEST_F(Walk, EveryButtonOfTheFtpWindowItself)
{
    Walker walker(ftp);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 6);
}

TEST_F(Walk, EveryButtonOfTheAddressBookItself)
{
    Walker walker(addressBookWithContacts);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 40);
}

TEST_F(Walk, EveryButtonOfTheZipWindowItself)
{
    Walker walker(zip);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 8);
}

TEST_F(Walk, EveryButtonOfTheUnzipWindowItself)
{
    Walker walker(unzip);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 3);
}

TEST_F(Walk, EveryButtonOfTheImageViewerItself)
{
    Walker walker(imageViewer);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 12);
}

TEST_F(Walk, EveryButtonOfTheHelpItself)
{
    Walker walker(help);
    walker.pressEveryButtonOfTheTool();
    EXPECT_EQ(walker.errors(), QStringList());
    EXPECT_EQ(walker.steps().size(), 7);
}
