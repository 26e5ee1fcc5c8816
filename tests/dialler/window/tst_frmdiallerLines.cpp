#include "DiallerWindow.h"
#include "Globals.h"
#include "LineError.h"
#include "ListBox.h"
#include "PrintQt.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString applicationTitle = QStringLiteral("QuillOfficeToolsv2");

/// In the set-up.
struct DiallerLinesTest : testing::Test
{
    DiallerWindow window;

    void expectError(const char *text)
    {
        window.frame.dialogs.expectBox(QStringLiteral("Modem Error!"), QString::fromLatin1(text))
            .icon(QMessageBox::Critical)
            .buttons(QMessageBox::Ok);
    }
    void expectNoVoice() { expectError("The line selected does not support Voice Calls!"); }
    void expectUnsuitable()
    {
        expectError("The line selected is not suitable for Voice Calls in this program!");
    }
    void takeVoiceFrom(int line)
    {
        window.service.lines[line].capabilities.dwMediaModes = LineDevCaps::DataModem;
    }
    QString operations(const char *name) const
    {
        return window.service.operations.filter(QString::fromLatin1(name)).join(u'|');
    }
};

} // namespace

TEST_F(DiallerLinesTest, ChoosingALineReportsIt)
{
    window.open("Setup");
    window.chooseLine(1);
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #1"));
    EXPECT_EQ(window.report().at(1), QStringLiteral("TAPI LINE NAME: second"));
    EXPECT_EQ(window.report().constLast(), QStringLiteral("Number of terminals for this line: 10"));
    EXPECT_EQ(window.control<QLabel>("Label1").text(), QStringLiteral("second"));
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerLinesTest, TheArrowKeysChooseALineToo)
{
    window.open("Setup");
    QTest::keyClick(&window.control<QComboBox>("cboLineSel"), Qt::Key_Down);
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #1"));
}

TEST_F(DiallerLinesTest, ALineWithoutVoiceIsRefused)
{
    takeVoiceFrom(1);
    window.open("Setup");
    expectNoVoice();
    lastAnswer.clear();
    window.chooseLine(1);
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
    EXPECT_FALSE(window.canDial());
    window.chooseLine(0);
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerLinesTest, ALineOfAnUnsuitableKindIsRefused)
{
    window.service.lines[1].name = QStringLiteral("My h323 line");
    window.open("Setup");
    expectUnsuitable();
    window.chooseLine(1);
    EXPECT_FALSE(window.canDial());
}

TEST_F(DiallerLinesTest, ALineMayFailBothChecks)
{
    takeVoiceFrom(0);
    window.service.lines[0].name = QStringLiteral("IPCONF line");
    expectNoVoice();
    expectUnsuitable();
    window.open("Use");
    EXPECT_FALSE(window.canDial());
}

/// Also the one that is chosen already.
/// Both are needed: the media and what bears them.
TEST_F(DiallerLinesTest, ALineThatBearsNoVoiceIsRefused)
{
    window.service.lines[1].capabilities.dwBearerModes = LineDevCaps::BearerData;
    window.open("Setup");
    expectNoVoice();
    window.chooseLine(1);
    EXPECT_FALSE(window.canDial());
}

/// The line is in use then; the call goes on and keeps its number.
TEST_F(DiallerLinesTest, ASecondCallIsRefused)
{
    window.open("Setup");
    window.press("cmdDial");
    window.reply(DiallerWindow::makeRequest);
    window.state(LineMessage::Connected);
    window.chooseLine(0);
    EXPECT_TRUE(window.canDial());
    window.type(QStringLiteral("99"));
    window.frame.dialogs.expectBox(applicationTitle, QStringLiteral("TAPI ERROR \nUnknown Error"));
    window.press("cmdDial");
    EXPECT_TRUE(window.canDial());
    EXPECT_TRUE(window.canHangUp());
    window.press("cmdHangUp");
    window.reply(DiallerWindow::dropRequest);
    EXPECT_EQ(window.log().constLast(), QStringLiteral("Call Dropped: 1234567"));
}

TEST_F(DiallerLinesTest, ChoosingALineEnablesDiallingAfterARefusedCall)
{
    window.open("Setup");
    window.press("cmdDial");
    window.reply(DiallerWindow::makeRequest, quint32(LineError::InvalidAddress));
    EXPECT_FALSE(window.canDial());
    window.chooseLine(0);
    EXPECT_TRUE(window.canDial());
}

/// The load is not over before they are answered.
TEST_F(DiallerLinesTest, TheWaitCursorIsOverTheBoxesOfTheLoad)
{
    takeVoiceFrom(0);
    bool isWaiting = false;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        isWaiting =
            QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        box.accept();
    });
    window.open("Setup");
    EXPECT_TRUE(isWaiting);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DiallerLinesTest, ARowWithoutTextIsNoLine)
{
    window.open("Setup");
    window.control<QComboBox>("cboLineSel").addItem(QString());
    window.chooseLine(2);
    EXPECT_EQ(window.report(), QStringList{QStringLiteral("<No Valid TAPI Line Selected>")});
    EXPECT_TRUE(window.canDial()); // Intended: the line before is checked again
    window.press("cmdExit");
    EXPECT_EQ(window.file(), " 0 \r\n");
}

TEST_F(DiallerLinesTest, OnlyTheButtonSaves)
{
    window.open("Setup");
    window.chooseLine(1);
    window.item("mnuClose").trigger();
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.file(), " 0 \r\n");
    window.open("Setup");
    window.chooseLine(1);
    window.press("cmdExit");
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.file(), " 1 \r\n");
}

TEST_F(DiallerLinesTest, InUseNothingIsSaved)
{
    window.putFile("1");
    window.open("Use");
    window.press("cmdExit");
    EXPECT_FALSE(window.isOpen());
    EXPECT_EQ(window.file(), "1");
}

TEST_F(DiallerLinesTest, ItsTwoDialogsHaveTheLineAndTheNumber)
{
    window.open("Setup");
    window.chooseLine(1);
    window.press("cmdConfigDlg");
    EXPECT_EQ(operations("config"), QStringLiteral("config 1 null"));
    window.press("cmdDialProps");
    EXPECT_EQ(operations("translate"), QStringLiteral("translate 1 20000 1234567"));
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #1"));
}

TEST_F(DiallerLinesTest, DialogsThatFailAreReported)
{
    window.open("Setup");
    window.service.dialog = LineError::OperationUnavailable;
    for (const char *button : {"cmdConfigDlg", "cmdDialProps"}) {
        window.frame.dialogs.expectBox(applicationTitle, QStringLiteral("Operation Unavailable"))
            .icon(QMessageBox::NoIcon)
            .buttons(QMessageBox::Ok);
        window.press(button);
    }
}

TEST_F(DiallerLinesTest, TheFirstLineIsEnteredInItsDialog)
{
    window.service.lines.clear();
    window.open("Setup");
    window.service.inDialog = [this] { window.service.lines = {{QStringLiteral("new")}}; };
    window.press("cmdConfigDlg");
    EXPECT_EQ(window.lineRows(), QStringList{QStringLiteral("0: new")});
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #0"));
    EXPECT_EQ(window.control<QLabel>("Label1").text(), QStringLiteral("new"));
}

TEST_F(DiallerLinesTest, ACancelledDialogLeavesAllAsItIs)
{
    window.service.lines.clear();
    window.open("Setup");
    const QStringList before = window.report();
    window.press("cmdConfigDlg");
    EXPECT_EQ(window.report(), before);
    EXPECT_TRUE(window.lineRows().isEmpty());
}

TEST_F(DiallerLinesTest, ALineThatIsChangedUnderItsNameIsReportedAnew)
{
    window.open("Setup");
    window.chooseLine(1);
    window.service.inDialog = [this] { window.service.lines[1].capabilities.dwMaxRate = 9600; };
    window.press("cmdConfigDlg");
    EXPECT_TRUE(window.report().contains(QStringLiteral("Max data rate: 9600")));
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #1"));
    EXPECT_EQ(window.control<QComboBox>("cboLineSel").currentIndex(), 1);
    window.service.inDialog = [this] { takeVoiceFrom(1); };
    expectNoVoice();
    window.press("cmdConfigDlg");
    EXPECT_FALSE(window.canDial());
}

TEST_F(DiallerLinesTest, LinesThatAreTakenAwayLeaveTheList)
{
    window.open("Setup");
    window.chooseLine(1);
    window.service.inDialog = [this] { window.service.lines.removeLast(); };
    window.press("cmdConfigDlg");
    EXPECT_EQ(window.lineRows(), QStringList{QStringLiteral("0: first")});
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #0"));
    window.service.inDialog = [this] { window.service.lines.clear(); };
    window.press("cmdConfigDlg");
    EXPECT_TRUE(window.lineRows().isEmpty());
    EXPECT_EQ(window.report(), QStringList{QStringLiteral("<No Valid TAPI Line Selected>")});
}

/// Or no later load would get past it.
TEST_F(DiallerLinesTest, ASavedLineThatIsTakenAwayIsNotTheSavedOneAnyMore)
{
    window.putFile("1\r\n");
    window.open("Setup");
    window.service.inDialog = [this] { window.service.lines.removeLast(); };
    window.press("cmdConfigDlg");
    EXPECT_EQ(window.file(), QByteArray(" 0 \r\n"));
    window.form().unload();
    window.open("Use");
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerLinesTest, ALineThatIsTakenAwayLeavesASavedOneThatIsThere)
{
    window.open("Setup");
    window.chooseLine(1);
    window.service.inDialog = [this] { window.service.lines.removeLast(); };
    window.putFile("0 as it was");
    window.press("cmdConfigDlg");
    EXPECT_EQ(window.file(), QByteArray("0 as it was"));
}

TEST_F(DiallerLinesTest, EditingTheLinesEnablesDiallingAfterARefusedCall)
{
    window.open("Setup");
    window.press("cmdDial");
    window.reply(DiallerWindow::makeRequest, quint32(LineError::NotRegistered));
    EXPECT_FALSE(window.canDial());
    window.press("cmdConfigDlg");
    EXPECT_TRUE(window.canDial());
}

/// The service's lines stay as they are in a call.
TEST_F(DiallerLinesTest, LinesThatAreEditedInACallAreListedBehindIt)
{
    window.open("Setup");
    window.press("cmdDial");
    window.reply(DiallerWindow::makeRequest);
    window.state(LineMessage::Connected);
    window.press("cmdConfigDlg");
    window.service.lines[1].name = QStringLiteral("other");
    window.state(LineMessage::Idle);
    EXPECT_EQ(window.lineRows(), QStringList({QStringLiteral("0: first"), QStringLiteral("1: other")}));
}

TEST_F(DiallerLinesTest, MayBeUnloadedUnderItsDialog)
{
    window.open("Setup");
    window.service.inDialog = [this] {
        window.form().unload();
        window.service.lines = {{QStringLiteral("new")}};
        takeVoiceFrom(0); // no box says so
    };
    window.press("cmdConfigDlg");
    EXPECT_TRUE(window.isGone());
}

/// Names come from outside.
TEST_F(DiallerLinesTest, NamesAreShownAsPlainText)
{
    window.service.lines[0].name = QStringLiteral("<b>a</b>\u202e&x");
    window.open("Setup");
    const auto &label = window.control<QLabel>("Label1");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), QStringLiteral("<b>a</b>\ufffd&x"));
    EXPECT_EQ(window.report().at(1), QStringLiteral("TAPI LINE NAME: <b>a</b>\u202e&x"));
}

/// A tab in front of a row indents it; it is no sign that is seen.
TEST_F(DiallerLinesTest, TheModesAreIndented)
{
    window.open("Setup");
    const auto &list = window.control<ListBox>("lstLineInfo");
    const int row = int(window.report().indexOf(QStringLiteral("\tLINEBEARERMODE_VOICE")));
    ASSERT_GT(row, 0);
    const auto *delegate = qobject_cast<QStyledItemDelegate *>(list.itemDelegate());
    EXPECT_EQ(delegate->displayText(list.List(row), QLocale()),
              QStringLiteral("        LINEBEARERMODE_VOICE"));
    EXPECT_EQ(delegate->displayText(QStringLiteral("\ta\tb"), QLocale()), QStringLiteral("        a\ufffdb"));
}
