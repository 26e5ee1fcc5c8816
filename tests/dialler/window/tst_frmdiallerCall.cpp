#include "DiallerWindow.h"
#include "Forms.h"
#include "LineError.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "RowName.h"

#include <QAction>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString title = QStringLiteral("QuillOfficeToolsv2");

/// What begins a call, and what ends it: a button or the menu's item.
struct CallRow
{
    const char *name;
    const char *dial;
    const char *hangUp;
};

struct DiallerCallTest : testing::Test
{
    DiallerWindow window;

    DiallerCallTest() { window.open("Use"); }

    void choose(const char *control)
    {
        if (qstrncmp(control, "mnu", 3) == 0)
            window.item(control).trigger();
        else
            window.press(control);
    }
    void dial(const char *number = "1234")
    {
        window.type(QString::fromLatin1(number));
        window.press("cmdDial");
    }
    void connect()
    {
        dial();
        window.reply(DiallerWindow::makeRequest);
        window.state(LineMessage::Connected);
    }
    QString log() const { return window.log().join(u'|'); }
    QStringList calls() const { return window.service.operations.filter(QStringLiteral("call")); }
};

struct WholeCallTest : DiallerCallTest, testing::WithParamInterface<CallRow>
{};

} // namespace

TEST_P(WholeCallTest, IsHungUpHere)
{
    window.type(QStringLiteral("1234"));
    choose(GetParam().dial);
    EXPECT_FALSE(window.canDial());
    EXPECT_FALSE(window.canHangUp());
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0|Preparing to dial: 1234"));
    EXPECT_EQ(window.service.operations.filter(QStringLiteral("open")).join(u'|'),
              QStringLiteral("open 0 20000 1 4"));
    EXPECT_EQ(calls().join(u'|'), QStringLiteral("call 2 1234"));
    window.reply(DiallerWindow::makeRequest);
    EXPECT_FALSE(window.canDial());
    window.state(LineMessage::Connected);
    EXPECT_FALSE(window.canDial());
    EXPECT_TRUE(window.canHangUp());
    EXPECT_TRUE(window.item("mnuhangup").isEnabled());
    choose(GetParam().hangUp);
    window.reply(DiallerWindow::dropRequest);
    window.service.dropping = LineError::InvalidCallState; // a second drop is none
    window.state(LineMessage::Disconnected);
    EXPECT_FALSE(window.canHangUp());
    EXPECT_FALSE(window.item("mnuhangup").isEnabled());
    EXPECT_FALSE(window.canDial());
    window.state(LineMessage::Idle);
    EXPECT_TRUE(window.canDial());
    EXPECT_FALSE(window.canHangUp());
    EXPECT_FALSE(window.item("mnuhangup").isEnabled());
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0|Preparing to dial: 1234|Dialing: 1234|Connected|"
                                    "Requesting drop call...|Call Dropped: 1234|Disconnected|Idle"));
    const auto &list = window.control<ListBox>("lstCallProgress");
    EXPECT_EQ(list.ListIndex(), list.ListCount() - 1);
}

INSTANTIATE_TEST_SUITE_P(Commands, WholeCallTest,
                         testing::Values(CallRow{"Buttons", "cmdDial", "cmdHangUp"},
                                         CallRow{"MenuItems", "mnudial", "mnuhangup"}),
                         RowName());

TEST_F(DiallerCallTest, TheFarEndHangsUp)
{
    connect();
    window.state(LineMessage::Disconnected);
    window.reply(DiallerWindow::dropRequest);
    window.state(LineMessage::Idle);
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0|Preparing to dial: 1234|Dialing: 1234|Connected|"
                                    "Disconnected|Call Dropped: 1234|Idle"));
    dial("5");
    EXPECT_EQ(calls().size(), 2);
}

TEST_F(DiallerCallTest, TheLogFollowsItsEnd)
{
    for (int round = 0; round < 10; ++round) {
        connect();
        window.state(LineMessage::Disconnected);
        window.state(LineMessage::Idle);
    }
    auto &list = window.control<ListBox>("lstCallProgress");
    EXPECT_EQ(list.Text(), QStringLiteral("Idle"));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QModelIndex last = list.model()->index(list.ListCount() - 1, 0);
        return last.isValid() && list.viewport()->rect().contains(list.visualRect(last));
    }));
}

/// What the user does adds rows; what the line reports selects its own.
TEST_F(DiallerCallTest, EachEventSelectsItsRow)
{
    const auto &list = window.control<ListBox>("lstCallProgress");
    const auto selected = [&] { return list.ListIndex(); };
    dial();
    EXPECT_EQ(selected(), -1);
    window.reply(DiallerWindow::makeRequest);
    EXPECT_EQ(selected(), 2);
    window.state(LineMessage::Connected);
    EXPECT_EQ(selected(), 3);
    window.press("cmdHangUp");
    EXPECT_EQ(selected(), 3);
    window.reply(DiallerWindow::dropRequest);
    EXPECT_EQ(selected(), 5);
    window.service.dropping = LineError::InvalidCallState; // a second drop is none
    window.state(LineMessage::Disconnected);
    EXPECT_EQ(selected(), 6);
    window.state(LineMessage::Idle);
    EXPECT_EQ(selected(), 7);
}

TEST_F(DiallerCallTest, NeedsANumber)
{
    window.type({});
    for (const char *command : {"cmdDial", "mnudial"}) {
        window.frame.dialogs
            .expectBox(QStringLiteral("Need a number to dial.."),
                       QStringLiteral("No phone number entered, please enter phone number!"))
            .icon(QMessageBox::Information)
            .buttons(QMessageBox::Ok);
        choose(command);
    }
    EXPECT_TRUE(log().isEmpty());
    EXPECT_TRUE(window.canDial());
}

/// Whatever is in the field is handed over; the line service refuses what it must not dial.
TEST_F(DiallerCallTest, ABlankIsANumber)
{
    dial(" ");
    EXPECT_EQ(calls().join(u'|'), QStringLiteral("call 2  "));
}

TEST_F(DiallerCallTest, ReturnInTheFieldDialsNothing)
{
    auto &field = window.control<QWidget>("txtPhoneNumber");
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(log().isEmpty());
    EXPECT_TRUE(calls().isEmpty());
}

TEST_F(DiallerCallTest, ALineThatDoesNotOpenIsReported)
{
    window.service.opening = LineError::InUse;
    window.frame.dialogs.expectBox(title, QStringLiteral("TAPI ERROR \nIn Use"))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    dial();
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0"));
    EXPECT_TRUE(window.canDial());
    EXPECT_TRUE(calls().isEmpty());
}

/// Intended: the error is read twice, so its text is never known.
TEST_F(DiallerCallTest, ACallThatCannotBeMadeIsReported)
{
    window.service.making = LineError::InvalidAddress;
    window.frame.dialogs.expectBox(title, QStringLiteral("Error #-2147483632\nUnknown Error"))
        .icon(QMessageBox::Information)
        .buttons(QMessageBox::Ok);
    dial();
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0|Preparing to dial: 1234"));
    EXPECT_EQ(window.service.operations.constLast(), QStringLiteral("close 2"));
    EXPECT_TRUE(window.canDial());
}

TEST_F(DiallerCallTest, ARefusedCallLeavesDiallingDisabled)
{
    dial();
    window.reply(DiallerWindow::makeRequest, quint32(LineError::InvalidAddress));
    EXPECT_EQ(log(), QStringLiteral("Opening line: #0|Preparing to dial: 1234|Could not dial: 1234|"
                                    "Dial Error: Invalid Address"));
    EXPECT_EQ(window.control<ListBox>("lstCallProgress").ListIndex(), 3);
    EXPECT_FALSE(window.canDial());
    EXPECT_FALSE(window.canHangUp());
    EXPECT_EQ(window.service.operations.constLast(), QStringLiteral("close 2"));
}

TEST_F(DiallerCallTest, ADropThatFailsLaterIsLogged)
{
    connect();
    window.press("cmdHangUp");
    window.reply(DiallerWindow::dropRequest, quint32(LineError::OperationFailed));
    EXPECT_EQ(window.log().mid(4).join(u'|'),
              QStringLiteral("Requesting drop call...|Call Drop Error: Operation Failed"));
    EXPECT_EQ(window.control<ListBox>("lstCallProgress").ListIndex(), 5);
}

TEST_F(DiallerCallTest, ADropThatFailsAtOnceIsReported)
{
    connect();
    window.service.dropping = LineError::InvalidCallState;
    window.frame.dialogs.expectBox(title, QStringLiteral("Error #-2147483620\nUnknown Error"))
        .icon(QMessageBox::NoIcon)
        .buttons(QMessageBox::Ok);
    window.press("cmdHangUp");
    EXPECT_EQ(window.log().constLast(), QStringLiteral("Requesting drop call..."));
}

/// Intended: the item of the menu is there before any call.
TEST_F(DiallerCallTest, HangingUpNoCallIsReported)
{
    window.frame.dialogs.expectBox(title, QStringLiteral("Error #0\nUnknown Error"))
        .icon(QMessageBox::NoIcon);
    window.item("mnuhangup").trigger();
    EXPECT_EQ(log(), QStringLiteral("Requesting drop call..."));
}

/// What is typed in the call is no part of the number that was dialled.
TEST_F(DiallerCallTest, TheLogKeepsTheNumberThatWasDialled)
{
    connect();
    window.press("cmddigit_9");
    window.press("cmdHangUp");
    window.reply(DiallerWindow::dropRequest);
    EXPECT_EQ(window.log().constLast(), QStringLiteral("Call Dropped: 1234"));
}

TEST_F(DiallerCallTest, ClosingTheWindowWithoutACallShowsNoBox)
{
    bool isAsked = false;
    QStringList last;
    auto &list = window.control<ListBox>("lstCallProgress");
    QObject::connect(list.model(), &QAbstractItemModel::rowsInserted, &list, [&] {
        isAsked = true;
        last = window.log();
    });
    window.item("mnuClose").trigger();
    EXPECT_TRUE(isAsked);
    EXPECT_EQ(last, QStringList{QStringLiteral("Requesting drop call...")});
    EXPECT_TRUE(window.isGone());
    EXPECT_EQ(window.service.operations.constLast(), QStringLiteral("shutdown"));
}

TEST_F(DiallerCallTest, ClosingTheWindowEndsTheCall)
{
    connect();
    window.service.operations.clear();
    window.press("cmdExit");
    const QStringList all{QStringLiteral("drop 3"), QStringLiteral("deallocate 3"), QStringLiteral("close 2"),
                          QStringLiteral("shutdown")};
    EXPECT_EQ(window.service.operations, all); // at once, also where a handler keeps the window's object
    EXPECT_TRUE(window.isGone());
    EXPECT_EQ(window.service.operations, all);
}

TEST_F(DiallerCallTest, ClosingTheWindowIgnoresADropThatFails)
{
    connect();
    window.service.dropping = LineError::InvalidCallState;
    window.form().unload();
    EXPECT_FALSE(window.isOpen());
}

/// The box of a failed dial is up while the window is unloaded behind it.
TEST_F(DiallerCallTest, MayBeUnloadedUnderItsBox)
{
    window.service.making = LineError::InvalidAddress;
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [this](QMessageBox &box) {
        window.form().unload();
        box.accept();
    });
    dial();
    EXPECT_TRUE(window.isGone());
}
