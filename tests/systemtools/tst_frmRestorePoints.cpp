#include "FakeFrame.h"
#include "Forms.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "ScratchSnapper.h"
#include "frmRestorePoints.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct RestorePointsTest : testing::Test
{
    RestorePointsTest()
    {
        Forms::registerWindow(QStringLiteral("frmRestorePoints"), Forms::Instances::One,
                              [] { return new frmRestorePoints; });
        auto &opened = Forms::refer<frmRestorePoints>();
        opened.showModeless();
        form = &opened;
    }
    void press(const char *button) const
    {
        QTest::mouseClick(&form->member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    QLineEdit &description() const { return form->member<QLineEdit>(QStringLiteral("Text1")); }
    QStringList rows() const
    {
        const auto &list = form->member<ListBox>(QStringLiteral("listview2"));
        QStringList texts;
        for (int row = 0; row < list.ListCount(); ++row)
            texts << list.List(row);
        return texts;
    }

    FakeFrame frame;
    ScratchSnapper snapper;
    QPointer<frmRestorePoints> form;
};

const QByteArray captions = "number,date,description\n0,,current\n";
const QByteArray untilGo =
    "while [ ! -e \"$folder/go.sh\" ]; do sleep 0.01; done; cat \"$folder/list.out\"\n";

} // namespace

TEST_F(RestorePointsTest, BeginsEmptyAndInItsSize)
{
    EXPECT_EQ(form->Caption(), QStringLiteral("Show/Create System Restore Points"));
    EXPECT_EQ(form->Width(), 6465);
    EXPECT_EQ(form->Height(), 7140);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(snapper.calls(), QStringList());
    EXPECT_EQ(form->member<QLabel>(QStringLiteral("Label1")).text(),
              QStringLiteral("Description of New Restore Point. (Date && Time appended automatically)"));
    EXPECT_EQ(form->member<QPushButton>(QStringLiteral("Command1")).toolTip(),
              QStringLiteral("Show Current System Restore Points"));
    EXPECT_EQ(form->member<QPushButton>(QStringLiteral("Command2")).toolTip(),
              QStringLiteral("Create a New System Restore Point"));
    EXPECT_EQ(form->member<QPushButton>(QStringLiteral("Command3")).toolTip(), QStringLiteral("Close"));
}

TEST_F(RestorePointsTest, ShowsThePointsInTheServicesOrder)
{
    snapper.answer("list", captions + "7,2026-11-20 23:51:09,before the update\n2,2025-01-02 03:04:05,\n");
    press("Command1");
    EXPECT_EQ(rows(), QStringList({QStringLiteral("P7 : before the update : 20/11/2026-23:51:09"),
                                   QStringLiteral("P2 :  : 02/01/2025-03:04:05")}));
    snapper.answer("list", captions);
    press("Command1");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(RestorePointsTest, ALongRowKeepsItsTime)
{
    EXPECT_EQ(form->member<ListBox>(QStringLiteral("listview2")).textElideMode(), Qt::ElideMiddle);
}

TEST_F(RestorePointsTest, ADescriptionIsNeeded)
{
    frame.dialogs.expectBox(QStringLiteral("Error!"), QStringLiteral("Enter a name for the restore point!"))
        .icon(QMessageBox::Critical);
    press("Command2");
    EXPECT_EQ(snapper.calls(), QStringList());
}

TEST_F(RestorePointsTest, BlanksAreADescription)
{
    frame.dialogs
        .expectBox(QStringLiteral("Job Done!"), QStringLiteral("Restore Point Created Successfully!"))
        .icon(QMessageBox::Information);
    snapper.answer("list", captions + "8,2026-11-23 01:02:03,  \n");
    description().setText(QStringLiteral("  "));
    press("Command2");
    EXPECT_TRUE(snapper.calls().first().endsWith(QStringLiteral("|--description|  ")));
    EXPECT_EQ(rows(), QStringList(QStringLiteral("P8 :    : 23/11/2026-01:02:03")));
}

TEST_F(RestorePointsTest, ARefusalEndsInABox)
{
    snapper.answer("create", {}, 1, "No permissions.\n");
    frame.dialogs
        .expectBox(QStringLiteral("System Error!"),
                   QStringLiteral("An error has occurred - Code: -2147217407 Description: No permissions."))
        .icon(QMessageBox::Critical);
    description().setText(QStringLiteral("a"));
    press("Command2");
    EXPECT_EQ(snapper.calls().size(), 1);
}

TEST_F(RestorePointsTest, AListThatFailsAfterTheCreationEndsInABoxToo)
{
    snapper.answer("list", {}, 1, "Failure (dbus fatal exception).\n");
    frame.dialogs.expectBox(QStringLiteral("Job Done!"),
                            QStringLiteral("Restore Point Created Successfully!"));
    frame.dialogs.expectBox(
        QStringLiteral("System Error!"),
        QStringLiteral(
            "An error has occurred - Code: -2147217407 Description: Failure (dbus fatal exception)."));
    description().setText(QStringLiteral("a"));
    press("Command2");
}

TEST_F(RestorePointsTest, AListThatFailsIsNotTrapped)
{
    snapper.uninstall();
    frame.fatal.expect(429);
    press("Command1");
}

TEST_F(RestorePointsTest, TheButtonsWaitAndTheWindowMayBeClosedMeanwhile)
{
    snapper.runs("list", untilGo);
    bool wasEnabled = true;
    QTimer::singleShot(0, [&] {
        wasEnabled = form->member<QPushButton>(QStringLiteral("Command2")).isEnabled();
        press("Command3");
        snapper.runs("go", {});
    });
    press("Command1");
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(form.isNull() || !form->isLoaded());
}

TEST_F(RestorePointsTest, TheFocusWaitsInTheListAndComesBack)
{
    snapper.runs("list", untilGo);
    QString waiting;
    QTimer::singleShot(0, [&] {
        waiting = form->focusWidget()->objectName();
        snapper.runs("go", {});
    });
    press("Command1");
    EXPECT_EQ(waiting, QStringLiteral("listview2"));
    EXPECT_EQ(form->focusWidget()->objectName(), QStringLiteral("Command1"));
}

TEST_F(RestorePointsTest, TheFocusStaysWhereTheUserTakesItMeanwhile)
{
    snapper.runs("list", untilGo);
    QTimer::singleShot(0, [&] {
        description().setFocus();
        snapper.runs("go", {});
    });
    press("Command1");
    EXPECT_EQ(form->focusWidget(), &description());
}

TEST_F(RestorePointsTest, DescriptionsAreShownLetterByLetter)
{
    snapper.answer("list", captions + "1,2026-11-23 01:02:03,\"<b>a</b>\nb\xe2\x80\xae\"\n");
    press("Command1");
    EXPECT_EQ(rows(), QStringList(QStringLiteral("P1 : <b>a</b>\uFFFDb\uFFFD : 23/11/2026-01:02:03")));
}

TEST_F(RestorePointsTest, ItsMenusCallTheFrame)
{
    const auto item = [&](const char *name) { return form->findChild<QAction *>(QString::fromLatin1(name)); };
    EXPECT_EQ(item("mnuNew")->text(), QStringLiteral("New QuillWord Document"));
    EXPECT_EQ(item("mnuClose")->text(), QStringLiteral("Close Restore Points"));
    EXPECT_EQ(item("mnuExit")->text(), QStringLiteral("Exit Quill-Office Tools"));
    for (const char *name : {"mnuNew", "mnuCascade", "mnuTileHoriz", "mnuTileVert", "mnuArrange", "mnuExit"})
        item(name)->trigger();
    EXPECT_EQ(frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
    item("mnuClose")->trigger();
    EXPECT_TRUE(form.isNull() || !form->isLoaded());
}
