#include "DirListBox.h"
#include "DriveListBox.h"
#include "EventGate.h"
#include "FileListBox.h"
#include "IconButton.h"
#include "InternetTransfer.h"
#include "ListBox.h"
#include "Named.h"
#include "PasswordBox.h"
#include "PlainTextDelegate.h"
#include "RowDrop.h"
#include "StandardToolMenu.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "frmFTP.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

namespace {

constexpr int imageSize = 32;    // pixels
constexpr int leastLetters = 16; // of a text box
constexpr int leastRows = 4;     // of a list

constexpr ToolMenuRow menuRows[] = {
    renamed(StandardToolMenu::File, "mnufile", "&File"),
    renamed(StandardToolMenu::NewDocument, "mnuNewQuillWord", "New Quill&Word Document"),
    renamed(StandardToolMenu::Close, "mnuclose", "&Close"),
    StandardToolMenu::ExitTools,
    renamed(StandardToolMenu::Window, "mnuwindow", "&Window"),
    StandardToolMenu::Cascade,
    StandardToolMenu::TileHorizontal,
    StandardToolMenu::TileVertical,
    StandardToolMenu::ArrangeIcons,
};

QLineEdit *box(const char *name, QLineEdit *box, const QString &toolTip, const QString &spoken)
{
    box->setToolTip(toolTip);
    box->setMinimumWidth(leastLetters * box->fontMetrics().averageCharWidth());
    return named(name, box, spoken);
}

QLabel *labelOf(const char *name, const QString &caption, QWidget *box)
{
    auto *label = named<QLabel>(name, caption);
    label->setBuddy(box);
    return label;
}

/// Small enough for a small window; a larger one gives it all it has left.
template<class List>
List *list(const char *name, const QString &toolTip)
{
    auto *list = named<List>(name, toolTip);
    list->setToolTip(toolTip);
    list->setMinimumHeight(PlainTextDelegate::heightOfRows(*list, leastRows));
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return list;
}

} // namespace

frmFTP::frmFTP()
    : ChildForm(QStringLiteral("frmFTP"))
    , m_icons(new WindowIcons(*this))
    , ITC(named("ITC", new InternetTransfer(this)))
{
    setCaption(QStringLiteral("Quill-FTP"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("folder-remote")));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_menus = StandardToolMenu::build(menuRows, *this);
    layOut();
    setFocusProxy(txtServer);
    setConnected(false);
    cmdsend->setEnabled(true); // Intended: only a lost connection or a log-off takes these two away
    cmdreceive->setEnabled(true);
    bind();
}

void frmFTP::layOut()
{
    auto *connection = new QHBoxLayout;
    connection->addWidget(buildLoginInfo(), 1);
    connection->addWidget(buildStatus());
    auto *panes = new QHBoxLayout;
    panes->addWidget(buildLocalFiles(), 1);
    panes->addWidget(buildControls());
    panes->addWidget(buildRemoteFiles(), 1);
    auto *column = new QVBoxLayout(this);
    column->addLayout(connection);
    column->addLayout(panes, 1);
}

/// A picture that can be clicked; the button beside it takes the keys.
QToolButton *frmFTP::image(const char *name, const QString &toolTip, const QString &icon)
{
    auto *image = named(name, new QToolButton, toolTip);
    image->setToolTip(toolTip);
    image->setAutoRaise(true);
    image->setFocusPolicy(Qt::NoFocus);
    image->setIconSize({imageSize, imageSize});
    m_icons->add(*image, icon);
    return image;
}

QWidget *frmFTP::buildLoginInfo()
{
    auto *fraLoginInfo = named<QGroupBox>("fraLoginInfo", QStringLiteral("Login Options"));
    auto *grid = new QGridLayout(fraLoginInfo);
    // Intended: the account's tool tip is the server's
    txtAccount = box("txtAccount", new QLineEdit, QStringLiteral("FTP Server Name"),
                     QStringLiteral("Account Profile"));
    txtServer = box("txtServer", new QLineEdit, QStringLiteral("FTP Server Name"), QStringLiteral("Server"));
    txtUserName = box("txtUserName", new QLineEdit, QStringLiteral("User Name"), QStringLiteral("User Name"));
    txtPassword = box("txtPassword", new PasswordBox, QStringLiteral("Password"), QStringLiteral("Password"));
    grid->addWidget(labelOf("Label1", QStringLiteral("Account Profile:"), txtAccount), 0, 0);
    grid->addWidget(txtAccount, 0, 1);
    grid->addWidget(labelOf("lblServer", QStringLiteral("Server:"), txtServer), 0, 2);
    grid->addWidget(txtServer, 0, 3);
    grid->addWidget(labelOf("lblUserName", QStringLiteral("User Name:"), txtUserName), 1, 0);
    grid->addWidget(txtUserName, 1, 1);
    grid->addWidget(labelOf("lblPassword", QStringLiteral("Password:"), txtPassword), 1, 2);
    grid->addWidget(txtPassword, 1, 3);
    cmdLogOn = iconButton(*m_icons, "cmdLogOn", QStringLiteral("Connect"), QStringLiteral("network-connect"));
    cmdLogOff =
        iconButton(*m_icons, "cmdLogOff", QStringLiteral("Disconnect"), QStringLiteral("network-disconnect"));
    cmdAccounts = iconButton(*m_icons, "cmdAccounts", QStringLiteral("Saved Account Profiles"),
                             QStringLiteral("view-list-details"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {cmdLogOn, cmdLogOff, cmdAccounts})
        buttons->addWidget(button);
    grid->addLayout(buttons, 0, 4, 2, 1);
    return fraLoginInfo;
}

QWidget *frmFTP::buildStatus()
{
    auto *fraStatus = named<QGroupBox>("fraStatus", QStringLiteral("Status"));
    // Without a spoken name, so that a screen reader says what it shows.
    lblStatus = named("lblStatus", new QLabel(QStringLiteral("Not Connected")));
    lblStatus->setTextFormat(Qt::PlainText);
    lblStatus->setToolTip(QStringLiteral("Connection Status"));
    lblStatus->setMinimumWidth(
        lblStatus->fontMetrics().horizontalAdvance(QStringLiteral("Finding Host IP Address")));
    (new QVBoxLayout(fraStatus))->addWidget(lblStatus);
    return fraStatus;
}

QWidget *frmFTP::buildLocalFiles()
{
    auto *fraLocalFiles = named<QGroupBox>("fraLocalFiles", QStringLiteral("Local Files"));
    auto *column = new QVBoxLayout(fraLocalFiles);
    drvLocalDrive = named<DriveListBox>("drvLocalDrive", QStringLiteral("Local Drive List"));
    drvLocalDrive->setToolTip(QStringLiteral("Local Drive List"));
    dirLocalDir = list<DirListBox>("dirLocalDir", QStringLiteral("Local Directory"));
    filLocalFile = list<FileListBox>("filLocalFile", QStringLiteral("Local Files"));
    filLocalFile->setHidden(true); // a receive looks among them for what it may not overwrite
    column->addWidget(drvLocalDrive);
    column->addWidget(dirLocalDir, 1);
    column->addWidget(filLocalFile, 2);
    return fraLocalFiles;
}

QWidget *frmFTP::buildControls()
{
    auto *fraControls = named<QGroupBox>("fraControls", QStringLiteral("Controls"));
    auto *column = new QVBoxLayout(fraControls);
    const QString send = QStringLiteral("Send Selected File");
    const QString receive = QStringLiteral("Receive Selected File");
    cmdsend = iconButton(*m_icons, "cmdsend", send, QStringLiteral("go-next"));
    cmdreceive = iconButton(*m_icons, "cmdreceive", receive, QStringLiteral("go-previous"));
    column->addStretch(1);
    column->addWidget(image("imgSendFile", send, QStringLiteral("document-export")), 0, Qt::AlignHCenter);
    column->addWidget(cmdsend, 0, Qt::AlignHCenter);
    column->addWidget(named<QLabel>("lblSendFile", QStringLiteral("Send File")), 0, Qt::AlignHCenter);
    column->addStretch(1);
    column->addWidget(image("imgReceiveFile", QStringLiteral("Recieve Selected File"), // Intended: "Recieve"
                            QStringLiteral("document-import")),
                      0, Qt::AlignHCenter);
    column->addWidget(cmdreceive, 0, Qt::AlignHCenter);
    column->addWidget(named<QLabel>("lblReceiveFile", QStringLiteral("Receive File")), 0, Qt::AlignHCenter);
    column->addStretch(1);
    return fraControls;
}

QWidget *frmFTP::buildRemoteFiles()
{
    auto *fraRemoteFiles = named<QGroupBox>("fraRemoteFiles", QStringLiteral("Remote Files"));
    auto *column = new QVBoxLayout(fraRemoteFiles);
    lstRemoteFile = list<ListBox>("lstRemoteFile", QStringLiteral("Remote Files"));
    lstRemoteFile->setTextElideMode(Qt::ElideMiddle); // the end says what kind it is
    cmdNewFolder =
        iconButton(*m_icons, "cmdNewFolder", QStringLiteral("New Folder"), QStringLiteral("folder-new"));
    cmdUpFolder =
        iconButton(*m_icons, "cmdUpFolder", QStringLiteral("Move Up One Folder"), QStringLiteral("go-up"));
    cmdDelete = iconButton(*m_icons, "cmdDelete", QStringLiteral("Delete"), QStringLiteral("edit-delete"));
    cmdSize = iconButton(*m_icons, "cmdSize", QStringLiteral("Get File Size Information"),
                         QStringLiteral("documentinfo"));
    cmdRename =
        iconButton(*m_icons, "cmdRename", QStringLiteral("Rename File"), QStringLiteral("edit-rename"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {cmdNewFolder, cmdUpFolder, cmdDelete, cmdSize, cmdRename})
        buttons->addWidget(button);
    buttons->addStretch();
    column->addWidget(lstRemoteFile, 1);
    column->addLayout(buttons);
    return fraRemoteFiles;
}

void frmFTP::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmdLogOn", &frmFTP::cmdLogOn_Click},
                                    {"cmdLogOff", &frmFTP::cmdLogOff_Click},
                                    {"cmdAccounts", &frmFTP::cmdAccounts_Click},
                                    {"cmdNewFolder", &frmFTP::cmdNewFolder_Click},
                                    {"cmdUpFolder", &frmFTP::cmdUpFolder_Click},
                                    {"cmdDelete", &frmFTP::cmdDelete_Click},
                                    {"cmdSize", &frmFTP::cmdSize_Click},
                                    {"cmdRename", &frmFTP::cmdRename_Click},
                                    {"cmdsend", &frmFTP::cmdsend_Click},
                                    {"imgSendFile", &frmFTP::cmdsend_Click},
                                    {"cmdreceive", &frmFTP::cmdreceive_Click},
                                    {"imgReceiveFile", &frmFTP::cmdreceive_Click},
                                });
    for (const QLineEdit *box : {txtAccount, txtServer, txtUserName, txtPassword})
        setReturnButton(*box, *cmdLogOn);
    auto *refresh = new QShortcut(QKeySequence::Refresh, dirLocalDir->parentWidget());
    refresh->setContext(Qt::WidgetWithChildrenShortcut);
    on(refresh, &QShortcut::activated, filLocalFile, &FileListBox::Refresh);
    on(drvLocalDrive, &DriveListBox::Change, this, &frmFTP::drvLocalDrive_Change);
    on(dirLocalDir, &DirListBox::Change, this, &frmFTP::dirLocalDir_Change);
    on(lstRemoteFile, &ListBox::DblClick, this, &frmFTP::lstRemoteFile_DblClick);
    on(lstRemoteFile, &ListBox::KeyDown, this, &frmFTP::lstRemoteFile_KeyDown);
    on(ITC, &InternetTransfer::StateChanged, this, &frmFTP::ITC_StateChanged);
    on(new RowDrop(*filLocalFile, *lstRemoteFile), &RowDrop::Dropped, this, &frmFTP::cmdsend_Click);
    on(new RowDrop(*lstRemoteFile, *filLocalFile), &RowDrop::Dropped, this, &frmFTP::cmdreceive_Click);
}
