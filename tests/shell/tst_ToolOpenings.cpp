#include "Files.h"
#include "Forms.h"
#include "Globals.h"
#include "Paths.h"
#include "Pause.h"
#include "PrintQt.h"
#include "RunningSuite.h"
#include "ScratchProgramFolder.h"
#include "StandInTool.h"
#include "ToolOpenings.h"
#include "frmOptions.h"

#include <QMenuBar>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct ToolOpeningsTest : testing::Test
{
    RunningSuite suite;
    static void standIn(const char *name, Forms::Instances instances = Forms::Instances::One)
    {
        const QString window = QString::fromLatin1(name);
        Forms::registerWindow(window, instances, [window] { return new StandInTool(window); });
    }
    static qsizetype loaded(const char *name) { return Forms::named(QString::fromLatin1(name)).size(); }
};

} // namespace

TEST_F(ToolOpeningsTest, ASingleInstanceToolOpensOnce)
{
    for (const ToolOpenings::Row &row : ToolOpenings::rows()) {
        if (row.how != ToolOpenings::How::Show)
            continue;
        standIn(row.window);
        for (int round = 0; round < 2; ++round)
            ToolOpenings::open(row, suite.frame());
        EXPECT_EQ(suite.active().Name(), QString::fromLatin1(row.window));
        EXPECT_EQ(loaded(row.window), 1) << row.command;
        suite.active().unload();
    }
}

TEST_F(ToolOpeningsTest, TheToolbarOpensTheCalculatorWithItsMenus)
{
    suite.press("Calculator");
    EXPECT_EQ(suite.active().Name(), QStringLiteral("frmCalculator"));
    QList<QAction *> menus;
    for (const QMenu *menu : dynamic_cast<ChildForm &>(suite.active()).menus())
        menus << menu->menuAction();
    EXPECT_EQ(menus.size(), 2);
    EXPECT_EQ(suite.frame().menuBar()->actions(), menus);
}

TEST_F(ToolOpeningsTest, TheDiallerStartsAfreshInEachMode)
{
    standIn("frmdialler");
    suite.choose("diallersetup");
    EXPECT_EQ(diallerMode, QStringLiteral("Setup"));
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-Dialler - Set Up"));
    suite.active().setProperty("state", 1);
    suite.choose("dialleruse");
    EXPECT_EQ(diallerMode, QStringLiteral("Use"));
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-Dialler - AutoDial a Number"));
    EXPECT_FALSE(suite.active().property("state").isValid());
    EXPECT_EQ(loaded("frmdialler"), 1);
    suite.press("dialler");
    EXPECT_EQ(loaded("frmdialler"), 1);
}

TEST_F(ToolOpeningsTest, TheDiallerHasALineToSetUpAndAKeypadToUse)
{
    setPause([](int) {});
    const auto isShown = [this](const char *name) {
        return suite.active().member<QWidget>(QString::fromLatin1(name)).isVisible();
    };
    suite.choose("diallersetup");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-Dialler - Set Up"));
    EXPECT_TRUE(isShown("cboLineSel"));
    EXPECT_FALSE(isShown("cmddigit_5"));
    suite.choose("dialleruse");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-Dialler - AutoDial a Number"));
    EXPECT_FALSE(isShown("cboLineSel"));
    EXPECT_TRUE(isShown("cmddigit_5"));
    suite.press("dialler");
    EXPECT_TRUE(isShown("cmddigit_5"));
    EXPECT_EQ(loaded("frmdialler"), 1);
    setPause({});
}

TEST_F(ToolOpeningsTest, WithoutItsFileTheDiallerDoesNotOpen)
{
    const ScratchProgramFolder withoutFile;
    suite.press("dialler");
    EXPECT_NE(suite.active().Name(), QStringLiteral("frmdialler"));
    EXPECT_EQ(loaded("frmdialler"), 0);
    suite.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    suite.choose("dialleruse");
}

/// As a first start finds it.
TEST(InstalledDiallerFile, HasThePositionOfTheFirstLine)
{
    const QString path = Paths::native(Paths::appPath() + QStringLiteral("\\dialler.dat"));
    EXPECT_EQ(Files::read(path), " 0 \r\n");
}

TEST_F(ToolOpeningsTest, TwoFtpCommandsGiveOneWindow)
{
    suite.choose("mnuftpopen");
    suite.choose("mnuftpopen");
    EXPECT_EQ(loaded("frmFTP"), 1);
}

/// The menu lets the error of a window's load end the suite; the toolbar ignores it.
TEST_F(ToolOpeningsTest, WithoutItsProfilesTheFtpWindowDoesNotOpen)
{
    const ScratchProgramFolder withoutProfiles;
    suite.press("ftpclient");
    EXPECT_NE(suite.active().Name(), QStringLiteral("frmFTP"));
    for (Form *form : Forms::named(QStringLiteral("frmFTP")))
        form->unload();
    suite.fatal.expect(ErrorNumber::FileNotFound, QStringLiteral("File not found"));
    suite.choose("mnuftpopen");
}

TEST_F(ToolOpeningsTest, TheToolbarOpensTheFtpWindow)
{
    suite.press("ftpclient");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-FTP"));
}

TEST_F(ToolOpeningsTest, TwoAddressBookCommandsGiveOneWindow)
{
    suite.choose("mnuaddressbookopen");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Quill-Address Book"));
    suite.press("addressbook");
    EXPECT_EQ(loaded("frmAddressBook"), 1);
}

TEST_F(ToolOpeningsTest, WithoutItsDatabaseTheAddressBookDoesNotOpen)
{
    const ScratchProgramFolder withoutDatabase;
    suite.press("addressbook");
    EXPECT_NE(suite.active().Name(), QStringLiteral("frmAddressBook"));
    for (Form *form : Forms::named(QStringLiteral("frmAddressBook")))
        form->unload();
    suite.fatal.expect(-2147467259);
    suite.choose("mnuaddressbookopen");
}

/// The profiles hold passwords.
TEST(InstalledProfiles, AreTheUsersAlone)
{
    struct stat state = {};
    const QString path = Paths::native(Paths::appPath() + QStringLiteral("\\ftpprof.dat"));
    ASSERT_EQ(::stat(qPrintable(path), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0600u);
}

TEST_F(ToolOpeningsTest, EachBrowserIsANewOneAtItsPage)
{
    standIn("frmBrowser", Forms::Instances::Many);
    suite.choose("mnubrowser");
    suite.choose("mnubrowser");
    EXPECT_EQ(loaded("frmBrowser"), 2);
    for (const auto &[command, page] :
         {std::pair("mnubrowser", "http://www.tallowick.example/"),
          std::pair("mnuViewWebBrowser", "http://www.tallowick.example/"),
          std::pair("mnutallowickonweb", "http://www.tallowick.example/"),
          std::pair("mnuquilloffonweb", "http://www.tallowick.example/quilloffice/")}) {
        suite.choose(command);
        EXPECT_EQ(suite.active().property("StartingAddress").toString(), QString::fromLatin1(page))
            << command;
    }
}

TEST_F(ToolOpeningsTest, OptionsOpenFromBothMenus)
{
    for (const char *command : {"mnuViewOptions", "mnuToolsOptions"}) {
        bool seen = false;
        suite.dialogs.expectWindow<frmOptions>(QStringLiteral("frmOptions"), [&](frmOptions &window) {
            seen = window.isModal();
            window.close();
        });
        suite.choose(command);
        EXPECT_TRUE(seen) << command;
    }
}

TEST_F(ToolOpeningsTest, CreatingARestorePointOpensTheList)
{
    standIn("frmRestorePoints");
    suite.choose("mnuCreateRestore");
    EXPECT_EQ(suite.active().Name(), QStringLiteral("frmRestorePoints"));
}
