#include "frmCompsOnNetwork.h"

#include "Ask.h"
#include "ErrorReports.h"
#include "ListBox.h"
#include "Named.h"
#include "StandardToolMenu.h"
#include "ThemeIcon.h"
#include "WindowCommands.h"
#include "mMain.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr ToolMenuRow menuRows[] = {
    StandardToolMenu::File,
    StandardToolMenu::NewDocument,
    StandardToolMenu::Close,
    renamed(StandardToolMenu::ExitTools, "mnuexittools", "E&xit Quill-Office Tools "),
    renamed(StandardToolMenu::Window, "mnuWindow", "Window"),
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
};

constexpr int fewestToCommand = 2; // this computer and another one

} // namespace

constexpr frmCompsOnNetwork::Command frmCompsOnNetwork::shutDown = {
    RemoteShutdown::Order::ShutDown,
    "Shut Down Computer ",
    "Cannot Shut Down this Computer remotely from itself!",
    "A remote shutdown has been received from ",
    "Shut Down Command has been sent to ",
    "!\nYou have 30 seconds to abort.",
};

constexpr frmCompsOnNetwork::Command frmCompsOnNetwork::restart = {
    RemoteShutdown::Order::Restart,
    "Restart Computer ",
    "Cannot Restart this Computer remotely from itself!",
    "A remote restart has been received from ",
    "Restart Command has been sent to ",
    "!\nYou have 30 seconds to abort.\n"
    "You will need to re-log onto that computer after it restarts, if logon's are required.",
};

constexpr frmCompsOnNetwork::Command frmCompsOnNetwork::abort = {
    RemoteShutdown::Order::Abort,
    "Abort Command sent to ",
    "You cannot abort a command sent to this Computer as it wasn't sent!",
    "",
    "Abort Command has been sent to ",
    "!",
};

frmCompsOnNetwork::frmCompsOnNetwork(NetworkList::Search search)
    : ChildForm(QStringLiteral("frmCompsOnNetwork"))
    , List1(named<ListBox>("List1", QStringLiteral("Computers on this network")))
    , cmdShutIt(named<QPushButton>("cmdShutIt", QStringLiteral("Shutdown Selected")))
    , cmdRestart(named<QPushButton>("cmdRestart", QStringLiteral("Restart Selected")))
    , cmdAbort(named<QPushButton>("cmdAbort", QStringLiteral("Abort Command to Selected")))
    , OKButton(named<QPushButton>("OKButton", QStringLiteral("Close")))
    , m_network(std::move(search))
{
    setCaption(QStringLiteral("Quill-Network Info"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("network-workgroup")));
    m_menus = StandardToolMenu::build(menuRows, *this);
    List1->setSorted(true);
    layOut();
    for (QPushButton *button : {cmdShutIt, cmdRestart, cmdAbort})
        button->setEnabled(false);
    setFocusProxy(List1);
    setCancelButton(*OKButton);
    WindowCommands::bind(*this, {{"cmdShutIt", &frmCompsOnNetwork::cmdShutIt_Click},
                                 {"cmdRestart", &frmCompsOnNetwork::cmdRestart_Click},
                                 {"cmdAbort", &frmCompsOnNetwork::cmdAbort_Click},
                                 {"OKButton", &frmCompsOnNetwork::OKButton_Click}});
}

void frmCompsOnNetwork::layOut()
{
    auto *Label1 = named<QLabel>("Label1", QStringLiteral("Computers On This Network"));
    Label1->setBuddy(List1);
    auto *list = new QVBoxLayout;
    list->addWidget(Label1);
    list->addWidget(List1, 1);
    auto *buttons = new QVBoxLayout;
    for (QPushButton *button : {cmdShutIt, cmdRestart, cmdAbort})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(OKButton);
    auto *row = new QHBoxLayout(this);
    row->addLayout(list, 1);
    row->addLayout(buttons);
}

void frmCompsOnNetwork::Form_Load()
{
    m_network.FillComputerList(*List1);
    const bool hasOthers = List1->ListCount() >= fewestToCommand;
    cmdShutIt->setEnabled(hasOthers);
    cmdRestart->setEnabled(hasOthers);
}

void frmCompsOnNetwork::cmdShutIt_Click()
{
    sendAndArm(shutDown);
}

void frmCompsOnNetwork::cmdRestart_Click()
{
    sendAndArm(restart);
}

void frmCompsOnNetwork::cmdAbort_Click()
{
    resumeNext([&] { send(abort); });
}

void frmCompsOnNetwork::sendAndArm(const Command &command)
{
    resumeNext([&] {
        if (send(command))
            cmdAbort->setEnabled(true);
    });
}

/// False where nothing is selected, the user cancels, or the computer is this one.
bool frmCompsOnNetwork::send(const Command &command)
{
    const QString row = List1->Text();
    if (row.isEmpty())
        return false;
    const QString question = QLatin1String(command.question) + row + QStringLiteral(" ?");
    if (Ask(question, MsgBoxStyle::Question | MsgBoxStyle::OkCancel, QStringLiteral("Are you sure?")) ==
        MsgBoxReply::Cancel)
        return false;
    if (NetworkList::isThisMachine(row)) {
        Ask(QString::fromLatin1(command.refusal), MsgBoxStyle::Information,
            QStringLiteral("Don't think so!"));
        return false;
    }
    RemoteShutdown::send(command.order, m_network.computer(row),
                         QLatin1String(command.comment) + GetThisComputerName() + u'.');
    Ask(QLatin1String(command.sent) + row + QLatin1String(command.advice), MsgBoxStyle::Information,
        QStringLiteral("Command sent!"));
    return true;
}

void frmCompsOnNetwork::OKButton_Click()
{
    unload();
}
