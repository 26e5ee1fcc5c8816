#include "DiallerWindow.h"
#include "ErrorNumberOf.h"
#include "Forms.h"
#include "Globals.h"
#include "LineError.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "RowName.h"
#include "StandInTool.h"
#include "mMain.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const QString negotiating = QStringLiteral("Negotiating TAPI version...");
const QString again = QStringLiteral("Trying TAPI 1.3 - 1.4...");
const QString failed = QStringLiteral("Failed to negotiate TAPI version! <Critical Error!>");

/// Records what is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(const DiallerWindow &window)
        : m_window(window)
    {
        qApp->installEventFilter(this);
    }

    QObjectList painted;
    QStringList report; ///< as it was painted last
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        painted.append(watched);
        if (m_window.isOpen() && watched == m_window.control<ListBox>("lstLineInfo").viewport())
            report = m_window.report();
        return false;
    }

private:
    const DiallerWindow &m_window;
};

struct DiallerLoadTest : testing::Test
{
    DiallerWindow window;

    bool isShown(const char *name) const { return window.control<QWidget>(name).isVisible(); }
    QStringList shownControls() const
    {
        QStringList shown;
        for (const char *name : {"cboLineSel", "lblLineSel", "lstLineInfo", "cmdConfigDlg", "cmdDialProps",
                                 "cmddigit_0", "cmddigit_9", "cmddecimal_0", "cmddecimal_3", "cmdDial",
                                 "cmdHangUp", "cmdExit", "lstCallProgress", "txtPhoneNumber", "Label1"}) {
            if (isShown(name))
                shown.append(QString::fromLatin1(name));
        }
        return shown;
    }
    void expectFailedLoad(int error)
    {
        EXPECT_EQ(errorNumberOf([this] { window.open("Setup"); }), error);
        EXPECT_TRUE(Forms::named(QStringLiteral("frmdialler")).isEmpty());
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
};

struct ModeRow
{
    const char *name;
    const char *mode;
};

struct UseModeTest : DiallerLoadTest, testing::WithParamInterface<ModeRow>
{};

} // namespace

TEST_F(DiallerLoadTest, SetUpHasTheLineAndNoKeypad)
{
    window.open("Setup");
    EXPECT_EQ(shownControls().join(u' '),
              QStringLiteral("cboLineSel lblLineSel lstLineInfo cmdConfigDlg cmdDialProps cmdDial cmdHangUp "
                             "cmdExit lstCallProgress txtPhoneNumber Label1"));
    EXPECT_EQ(window.button("cmdDial").text(), QStringLiteral("Test Dial..."));
    EXPECT_EQ(window.button("cmdExit").text(), QStringLiteral("Save && Close"));
    for (int digit = 0; digit <= 9; ++digit)
        EXPECT_FALSE(isShown(qPrintable(QStringLiteral("cmddigit_%1").arg(digit)))) << digit;
    for (int special = 0; special <= 3; ++special)
        EXPECT_FALSE(isShown(qPrintable(QStringLiteral("cmddecimal_%1").arg(special)))) << special;
}

TEST_F(DiallerLoadTest, InSetUpTheNumberIsTyped)
{
    window.open("Setup");
    window.type(QStringLiteral("99"));
    EXPECT_EQ(window.number(), QStringLiteral("99"));
}

/// Any mode but "Setup" is "Use".
TEST_P(UseModeTest, HasTheKeypadAndNoLine)
{
    window.open(GetParam().mode);
    EXPECT_EQ(shownControls().join(u' '),
              QStringLiteral("cmddigit_0 cmddigit_9 cmddecimal_0 cmddecimal_3 cmdDial cmdHangUp cmdExit "
                             "lstCallProgress txtPhoneNumber Label1"));
    EXPECT_EQ(window.button("cmdDial").text(), QStringLiteral("Dial..."));
    EXPECT_EQ(window.button("cmdExit").text(), QStringLiteral("Close"));
}

INSTANTIATE_TEST_SUITE_P(Modes, UseModeTest,
                         testing::Values(ModeRow{"Use", "Use"}, ModeRow{"None", ""},
                                         ModeRow{"Lower", "setup"}, ModeRow{"Longer", "Setup "}),
                         RowName());

TEST_F(DiallerLoadTest, HasItsCaptionsAndTexts)
{
    window.open("Setup");
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Dialler Set-Up"));
    const auto caption = [this](const char *name) { return window.control<QLabel>(name).text(); };
    EXPECT_EQ(caption("lblLineSel"), QStringLiteral("Select Modem To Use"));
    EXPECT_EQ(caption("lblProgress"), QStringLiteral("Call Progress:"));
    EXPECT_EQ(caption("lblPhoneNumber"), QStringLiteral("Enter Phone Number to dial:"));
    EXPECT_EQ(window.button("cmdConfigDlg").text(), QStringLiteral("Line Config Dialog..."));
    EXPECT_EQ(window.button("cmdDialProps").text(), QStringLiteral("Dialing Properties..."));
    EXPECT_EQ(window.button("cmdHangUp").text(), QStringLiteral("Hang Up"));
    EXPECT_EQ(window.number(), QStringLiteral("1234567"));
    EXPECT_TRUE(window.control<QLineEdit>("txtPhoneNumber").alignment() & Qt::AlignRight);
}

TEST_F(DiallerLoadTest, ItsMenusHaveTheCallAndTheFrame)
{
    window.open("Use");
    QStringList items;
    for (const QAction *item : window.form().menus().constFirst()->actions())
        items.append(item->isSeparator() ? QStringLiteral("-") : item->objectName() + u' ' + item->text());
    EXPECT_EQ(items.join(u'|'),
              QStringLiteral("mnuNewQuillWord New Quill &Word Document|-|mnudial &Dial|mnuhangup &Hangup|-|"
                             "mnuClose &Close|mnuexittools E&xit Quill-Office Tools"));
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        window.item(item).trigger();
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
}

TEST_F(DiallerLoadTest, AgreesUponAVersionAndListsTheLines)
{
    window.open("Setup");
    EXPECT_EQ(window.pauses, QList<int>{1000});
    EXPECT_EQ(window.service.operations.mid(0, 3).join(u'|'),
              QStringLiteral(
                  "initialize QuillOfficeToolsv2 30000|negotiate 0 10003 20000|negotiate 1 10003 20000"));
    EXPECT_EQ(window.lineRows().join(u'|'), QStringLiteral("0: first|1: second"));
    EXPECT_EQ(window.control<QComboBox>("cboLineSel").currentIndex(), 0);
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #0"));
    EXPECT_EQ(window.control<QLabel>("Label1").text(), QStringLiteral("first"));
    EXPECT_TRUE(window.canDial());
    EXPECT_FALSE(window.canHangUp());
}

/// The wait lets no event run, so all that is seen meanwhile has to be painted before.
TEST_F(DiallerLoadTest, IsPaintedBeforeItWaits)
{
    PaintCounter counter(window);
    int pauses = 0;
    window.duringPause = [&] {
        ++pauses;
        EXPECT_TRUE(window.form().isVisible());
        EXPECT_GT(counter.painted.count(&window.form()), 0);
        EXPECT_GT(counter.painted.count(&window.button("cmdConfigDlg")), 0);
        EXPECT_EQ(counter.report, QStringList{negotiating});
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        EXPECT_EQ(window.control<QLabel>("Label1").text(), QStringLiteral("Modem"));
        EXPECT_FALSE(window.canHangUp());
    };
    window.open("Setup");
    EXPECT_EQ(pauses, 1);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DiallerLoadTest, TriesAnOlderVersionWhereTheNewerFails)
{
    window.service.initialisation = LineError::NoDriver;
    window.duringPause = [&] {
        if (window.pauses.size() == 3)
            window.service.initialisation = 0;
        EXPECT_EQ(
            window.report(),
            (QStringList{negotiating, QStringLiteral("No Driver"), again}).mid(0, window.pauses.size()));
    };
    window.open("Setup");
    EXPECT_EQ(window.pauses, (QList<int>{1000, 500, 1000}));
    EXPECT_EQ(window.service.operations.mid(0, 2).join(u'|'),
              QStringLiteral("initialize QuillOfficeToolsv2 30000|initialize QuillOfficeToolsv2 10004"));
    EXPECT_EQ(window.lineRows().size(), 2);
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #0"));
}

TEST_F(DiallerLoadTest, SaysSoWhereNoVersionWorks)
{
    window.service.initialisation = LineError::NoDriver;
    window.open("Setup");
    EXPECT_EQ(window.report(), (QStringList{negotiating, QStringLiteral("No Driver"), again, failed}));
    EXPECT_TRUE(window.lineRows().isEmpty());
    EXPECT_TRUE(window.canDial());
    EXPECT_FALSE(window.canHangUp());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DiallerLoadTest, OpensWithoutAnyLine)
{
    window.service.lines.clear();
    window.open("Use");
    EXPECT_EQ(window.report(), (QStringList{negotiating, QStringLiteral("Unknown Error"), again, failed}));
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerLoadTest, TakesTheSavedLine)
{
    window.putFile(" 1 \r\n");
    window.open("Use");
    EXPECT_EQ(window.control<QLabel>("Label1").text(), QStringLiteral("second"));
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #1"));
}

TEST_F(DiallerLoadTest, WithoutItsFileItDoesNotOpen)
{
    ASSERT_EQ(::unlink(window.folder.file("dialler.dat").constData()), 0);
    expectFailedLoad(ErrorNumber::FileNotFound);
    EXPECT_TRUE(window.pauses.isEmpty());
    EXPECT_TRUE(window.service.operations.isEmpty());
}

TEST_F(DiallerLoadTest, APositionBeyondTheListStopsTheLoad)
{
    for (const char *position : {" 2 \r\n", " 2147483647 \r\n", "-2 \r\n"}) {
        window.putFile(position);
        expectFailedLoad(ErrorNumber::InvalidPropertyValue);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DiallerLoadTest, NoLineIsChosenByMinusOne)
{
    window.putFile("-1 \r\n");
    window.open("Setup");
    EXPECT_EQ(window.control<QComboBox>("cboLineSel").currentIndex(), -1);
    EXPECT_EQ(window.report(), QStringList{negotiating});
}

/// Intended: the position in the list is taken for the line's number.
TEST_F(DiallerLoadTest, BehindALineThatFailsTheNumbersDiffer)
{
    window.service.lines[0].negotiation = LineError::NoDevice;
    window.open("Setup");
    EXPECT_EQ(window.lineRows(), QStringList{QStringLiteral("1: second")});
    EXPECT_EQ(window.report().constFirst(), QStringLiteral("TAPI LINE: #0"));
    EXPECT_EQ(window.report().at(1), QStringLiteral("TAPI LINE NAME: second")); // of the line read last
    window.press("cmdExit");
    EXPECT_EQ(window.file(), " 0 \r\n");
}

TEST_F(DiallerLoadTest, WhatIsTypedTakesThePlaceOfTheFirstNumber)
{
    window.open("Use");
    QTest::keyClicks(&window.control<QLineEdit>("txtPhoneNumber"), QStringLiteral("99"));
    EXPECT_EQ(window.number(), QStringLiteral("99"));
}

TEST_F(DiallerLoadTest, AutoDialShowsTheNumberAndDialsNothing)
{
    diallerMode = QStringLiteral("Setup");
    AutoDial(QStringLiteral("+44 (20) 1#"));
    EXPECT_EQ(diallerMode, QStringLiteral("Use"));
    EXPECT_TRUE(window.form().isVisible());
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Dialler - AutoDial a Number"));
    EXPECT_EQ(window.number(), QStringLiteral("+44 (20) 1#"));
    EXPECT_TRUE(isShown("cmddigit_5"));
    EXPECT_TRUE(window.log().isEmpty());
    AutoDial({});
    EXPECT_EQ(window.number(), QString());
}

/// Intended: it is not loaded again, so the set-up's controls stay.
TEST_F(DiallerLoadTest, AutoDialUsesAWindowThatIsOpen)
{
    window.open("Setup");
    auto *other = new StandInTool(QStringLiteral("other"));
    other->showModeless();
    ASSERT_EQ(&window.frame.active(), other);
    AutoDial(QStringLiteral("55"));
    EXPECT_EQ(&window.frame.active(), &window.form());
    EXPECT_EQ(window.number(), QStringLiteral("55"));
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Dialler - AutoDial a Number"));
    EXPECT_FALSE(isShown("cmddigit_5"));
    EXPECT_EQ(window.pauses, QList<int>{1000});
    window.putFile("1");
    window.press("cmdExit"); // which still says "Save"
    EXPECT_EQ(window.file(), " 0 \r\n");
}
