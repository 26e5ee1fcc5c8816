#include "EventGate.h"
#include "FakeFrame.h"
#include "Forms.h"
#include "ListBox.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchPrograms.h"
#include "frmCompsOnNetwork.h"
#include "mMain.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#ifdef QUILL_QT_PRIVATE
#include <qpa/qwindowsysteminterface.h>
#endif

namespace {

QString thisMachine()
{
    return GetThisComputerName().section(u'.', 0, 0).toUpper();
}

struct NetworkInfoTest : testing::Test
{
    NetworkInfoTest() { programs.addRecorder("net"); }

    void open(const NetworkList::Search &search)
    {
        Forms::registerWindow(QStringLiteral("frmCompsOnNetwork"), Forms::Instances::One,
                              [search] { return new frmCompsOnNetwork(search); });
        form = &Forms::refer<frmCompsOnNetwork>();
        form->showModeless();
    }
    void openWith(const QList<Computer> &computers)
    {
        open([computers] { return computers; });
    }
    void openWithHostB() { openWith({{QStringLiteral("HOSTB"), QStringLiteral("10.78.0.2")}}); }

    ListBox &list() const { return form->member<ListBox>(QStringLiteral("List1")); }
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list().ListCount(); ++row)
            texts << list().List(row);
        return texts;
    }
    void select(const QString &row) const { list().setListIndex(int(rows().indexOf(row))); }
    QPushButton &button(const char *name) const
    {
        return form->member<QPushButton>(QString::fromLatin1(name));
    }
    void press(const char *name) const { QTest::mouseClick(&button(name), Qt::LeftButton); }
    QString enabled() const
    {
        QStringList names;
        for (const char *name : {"cmdShutIt", "cmdRestart", "cmdAbort"}) {
            if (button(name).isEnabled())
                names << QString::fromLatin1(name);
        }
        return names.join(u' ');
    }
    BoxStep &expectQuestion(const QString &text)
    {
        return frame.dialogs.expectBox(QStringLiteral("Are you sure?"), text)
            .icon(QMessageBox::Question)
            .buttons(QMessageBox::Ok | QMessageBox::Cancel);
    }
    BoxStep &expectInformation(const QString &title, const QString &text)
    {
        return frame.dialogs.expectBox(title, text).icon(QMessageBox::Information).buttons(QMessageBox::Ok);
    }
    QByteArray sent() const
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !programs.content("net.calls").isEmpty(); }, 30000));
        return programs.content("net.calls").replace('\n', '|');
    }
    void sendShutDown()
    {
        expectQuestion(QStringLiteral("Shut Down Computer HOSTB ?"));
        expectInformation(
            QStringLiteral("Command sent!"),
            QStringLiteral("Shut Down Command has been sent to HOSTB!\nYou have 30 seconds to abort."));
        press("cmdShutIt");
    }

    FakeFrame frame;
    ScratchPrograms programs;
    QPointer<frmCompsOnNetwork> form;
};

struct CommandRow
{
    const char *button;
    QString question; ///< without the computer
    QString refusal;
    QString sent; ///< to HOSTB
};

const CommandRow commandRows[] = {
    {"cmdShutIt", QStringLiteral("Shut Down Computer %1 ?"),
     QStringLiteral("Cannot Shut Down this Computer remotely from itself!"),
     QStringLiteral("Shut Down Command has been sent to HOSTB!\nYou have 30 seconds to abort.")},
    {"cmdRestart", QStringLiteral("Restart Computer %1 ?"),
     QStringLiteral("Cannot Restart this Computer remotely from itself!"),
     QStringLiteral(
         "Restart Command has been sent to HOSTB!\nYou have 30 seconds to abort.\nYou will need to re-log "
         "onto that computer after it restarts, if logon's are required.")},
    {"cmdAbort", QStringLiteral("Abort Command sent to %1 ?"),
     QStringLiteral("You cannot abort a command sent to this Computer as it wasn't sent!"),
     QStringLiteral("Abort Command has been sent to HOSTB!")},
};

struct NetworkCommands : NetworkInfoTest, testing::WithParamInterface<CommandRow>
{
    NetworkCommands()
    {
        openWithHostB();
        button("cmdAbort").setEnabled(true); // as after a command
    }
};

} // namespace

TEST_F(NetworkInfoTest, ListsTheComputersInOrderAndMarksThisOne)
{
    openWith({{QStringLiteral("ZETA"), {}}, {QStringLiteral("ALPHA"), {}}, {thisMachine(), {}}});
    QStringList expected = {QStringLiteral("ALPHA"), QStringLiteral("ZETA"),
                            thisMachine() + QStringLiteral(" (This Machine)")};
    expected.sort();
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(form->Caption(), QStringLiteral("Quill-Network Info"));
    EXPECT_EQ(form->member<QLabel>(QStringLiteral("Label1")).text(),
              QStringLiteral("Computers On This Network"));
    EXPECT_EQ(enabled(), QStringLiteral("cmdShutIt cmdRestart"));
    EXPECT_EQ(list().ListIndex(), -1);
}

TEST_F(NetworkInfoTest, ItsButtonsHaveTheirCaptions)
{
    openWithHostB();
    EXPECT_EQ(button("cmdShutIt").text(), QStringLiteral("Shutdown Selected"));
    EXPECT_EQ(button("cmdRestart").text(), QStringLiteral("Restart Selected"));
    EXPECT_EQ(button("cmdAbort").text(), QStringLiteral("Abort Command to Selected"));
    EXPECT_EQ(button("OKButton").text(), QStringLiteral("Close"));
}

TEST_F(NetworkInfoTest, ThisComputerIsListedWhereItsOwnAnswerIsMissing)
{
    openWith({});
    EXPECT_EQ(rows(), QStringList(thisMachine() + QStringLiteral(" (This Machine)")));
}

TEST_F(NetworkInfoTest, AloneItCannotBeCommanded)
{
    openWith({{thisMachine(), QStringLiteral("10.78.0.1")}});
    EXPECT_EQ(list().ListCount(), 1);
    EXPECT_EQ(enabled(), QString());
}

TEST_F(NetworkInfoTest, AFailedSearchLeavesAnEmptyListAndDisabledButtons)
{
    open([] { return std::nullopt; });
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(enabled(), QString());
}

TEST_F(NetworkInfoTest, AFailedSearchLeavesTheRowsOfAnEarlierOne)
{
    ListBox box;
    bool fails = false;
    NetworkList network([&] { return fails ? std::nullopt : std::optional(QList<Computer>()); });
    network.FillComputerList(box);
    network.FillComputerList(box);
    EXPECT_EQ(box.ListCount(), 1);
    fails = true;
    network.FillComputerList(box);
    EXPECT_EQ(box.ListCount(), 1);
}

#ifdef QUILL_QT_PRIVATE // input can be queued like that of a display by Qt's private headers alone
TEST_F(NetworkInfoTest, InputDuringTheSearchIsNotLost)
{
    open([&] {
        QWindow *window = QGuiApplication::focusWindow();
        EXPECT_TRUE(window);
        QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
            window, QEvent::KeyPress, Qt::Key_Z, Qt::NoModifier, QStringLiteral("z"));
        bool isOver = false;
        QTimer::singleShot(50, [&] { isOver = true; });
        while (!isOver)
            waitForEventsButInput();
        return std::optional(QList<Computer>({{QStringLiteral("ZETA"), {}}, {QStringLiteral("0"), {}}}));
    });
    EXPECT_EQ(list().Text(), QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return list().Text() == QStringLiteral("ZETA"); }, 30000));
}
#endif

TEST_P(NetworkCommands, AreSentToTheSelectedComputer)
{
    select(QStringLiteral("HOSTB"));
    expectQuestion(GetParam().question.arg(QStringLiteral("HOSTB")));
    expectInformation(QStringLiteral("Command sent!"), GetParam().sent);
    press(GetParam().button);
    EXPECT_TRUE(sent().contains("|--server|HOSTB|--ipaddress|10.78.0.2|"));
    EXPECT_TRUE(button("cmdAbort").isEnabled());
}

TEST_P(NetworkCommands, ACancelledQuestionSendsNothing)
{
    select(QStringLiteral("HOSTB"));
    expectQuestion(GetParam().question.arg(QStringLiteral("HOSTB"))).press(QMessageBox::Cancel);
    press(GetParam().button);
    EXPECT_EQ(programs.content("net.calls"), QByteArray());
}

TEST_P(NetworkCommands, ThisComputerIsRefusedAfterTheQuestion)
{
    const QString row = thisMachine() + QStringLiteral(" (This Machine)");
    select(row);
    expectQuestion(GetParam().question.arg(row));
    expectInformation(QStringLiteral("Don't think so!"), GetParam().refusal);
    press(GetParam().button);
    EXPECT_EQ(programs.content("net.calls"), QByteArray());
}

TEST_P(NetworkCommands, ACancelledQuestionAboutThisComputerRefusesNothing)
{
    const QString row = thisMachine() + QStringLiteral(" (This Machine)");
    select(row);
    expectQuestion(GetParam().question.arg(row)).press(QMessageBox::Cancel);
    press(GetParam().button);
}

TEST_P(NetworkCommands, WithoutASelectionNothingHappens)
{
    press(GetParam().button);
    EXPECT_EQ(programs.content("net.calls"), QByteArray());
}

TEST_P(NetworkCommands, WithoutTheProgramThereIsABox)
{
    const ScratchPrograms none(ScratchPrograms::Others::Missing);
    select(QStringLiteral("HOSTB"));
    expectQuestion(GetParam().question.arg(QStringLiteral("HOSTB")));
    frame.dialogs
        .expectBox(QStringLiteral("System Error!"),
                   QStringLiteral("An error has occurred - Code: 53 Description: File not found"))
        .icon(QMessageBox::Critical);
    press(GetParam().button);
    EXPECT_TRUE(form->isLoaded());
}
INSTANTIATE_TEST_SUITE_P(Each, NetworkCommands, testing::ValuesIn(commandRows),
                         [](const auto &row) { return std::string(row.param.button); });

TEST_F(NetworkInfoTest, ShutDownArmsAbort)
{
    openWithHostB();
    select(QStringLiteral("HOSTB"));
    sendShutDown();
    EXPECT_EQ(enabled(), QStringLiteral("cmdShutIt cmdRestart cmdAbort"));
    EXPECT_TRUE(sent().startsWith(
        "rpc|shutdown|--force|--timeout|30|--comment|A remote shutdown has been received from " +
        GetThisComputerName().toUtf8() + ".|--server|"));
}

TEST_F(NetworkInfoTest, RestartArmsAbort)
{
    openWithHostB();
    select(QStringLiteral("HOSTB"));
    frame.dialogs.expectBox(QStringLiteral("Are you sure?"), QStringLiteral("Restart Computer HOSTB ?"));
    frame.dialogs.expectBox(QStringLiteral("Command sent!"), commandRows[1].sent);
    press("cmdRestart");
    EXPECT_EQ(enabled(), QStringLiteral("cmdShutIt cmdRestart cmdAbort"));
    const QByteArray arguments = sent();
    EXPECT_TRUE(arguments.contains("|--comment|A remote restart has been received from " +
                                   GetThisComputerName().toUtf8() + ".|--reboot|"))
        << arguments.constData();
}

TEST_F(NetworkInfoTest, AFailedCommandDoesNotArmAbort)
{
    const ScratchPrograms none(ScratchPrograms::Others::Missing);
    openWithHostB();
    select(QStringLiteral("HOSTB"));
    expectQuestion(QStringLiteral("Shut Down Computer HOSTB ?"));
    frame.dialogs.expectBox(QStringLiteral("System Error!"),
                            QStringLiteral("An error has occurred - Code: 53 Description: File not found"));
    press("cmdShutIt");
    EXPECT_EQ(enabled(), QStringLiteral("cmdShutIt cmdRestart"));
}

TEST_F(NetworkInfoTest, AbortGoesToWhateverIsSelected)
{
    openWith({{QStringLiteral("HOSTB"), {}}, {QStringLiteral("HOSTC"), {}}});
    select(QStringLiteral("HOSTB"));
    sendShutDown();
    sent();
    programs.add("net.calls", {});
    select(QStringLiteral("HOSTC"));
    frame.dialogs.expectBox(QStringLiteral("Are you sure?"), QStringLiteral("Abort Command sent to HOSTC ?"));
    frame.dialogs.expectBox(QStringLiteral("Command sent!"),
                            QStringLiteral("Abort Command has been sent to HOSTC!"));
    press("cmdAbort");
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return sent().startsWith("rpc|abortshutdown|--server|HOSTC|"); }, 30000));
    EXPECT_TRUE(button("cmdAbort").isEnabled());
}

TEST_F(NetworkInfoTest, TheMarkerCountsInAnyCaseOfLetters)
{
    EXPECT_TRUE(NetworkList::isThisMachine(QStringLiteral("HOST (this MACHINE)")));
    EXPECT_FALSE(NetworkList::isThisMachine(QStringLiteral("HOST")));
}

TEST_F(NetworkInfoTest, ItsMenusCallTheFrame)
{
    openWithHostB();
    const auto choose = [&](const char *name) {
        form->findChild<QAction *>(QString::fromLatin1(name))->trigger();
    };
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        choose(item);
    EXPECT_EQ(frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
    choose("mnuClose");
    EXPECT_TRUE(form.isNull() || !form->isLoaded());
}

TEST_F(NetworkInfoTest, ItsMenusHaveCaptionsOfTheirOwn)
{
    openWithHostB();
    const auto caption = [&](const char *name) {
        const auto *item = form->findChild<QAction *>(QString::fromLatin1(name));
        return item ? item->text() : QString();
    };
    EXPECT_EQ(caption("mnuexittools"), QStringLiteral("E&xit Quill-Office Tools "));
    EXPECT_EQ(caption("mnuWindow"), QStringLiteral("Window"));
}

TEST_F(NetworkInfoTest, CloseUnloads)
{
    openWithHostB();
    press("OKButton");
    EXPECT_TRUE(form.isNull() || !form->isLoaded());
}
