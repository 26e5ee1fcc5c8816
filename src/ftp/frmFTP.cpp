#include "frmFTP.h"

#include "Ask.h"
#include "Beep.h"
#include "DirListBox.h"
#include "DriveListBox.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "FileListBox.h"
#include "Forms.h"
#include "FtpCommand.h"
#include "FtpProfileFile.h"
#include "InputBox.h"
#include "InternetTransfer.h"
#include "ListBox.h"
#include "ListingRows.h"
#include "TransferError.h"
#include "frmFTPAccounts.h"
#include "mMain.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int requestTimeout = 40; // seconds
constexpr int pieceSize = 4096;    // characters

const QString connected = QStringLiteral("Connected");
const QString notConnected = QStringLiteral("Not Connected");
const QString logOnFailure = QStringLiteral("LogOn Failure");

/// What the status label says in a state; empty where it stays.
QString statusOf(int state)
{
    switch (state) {
    case InternetTransfer::ResolvingHost:
        return QStringLiteral("Finding Host IP Address");
    case InternetTransfer::HostResolved:
        return QStringLiteral("IP Address Found");
    case InternetTransfer::Connecting:
        return QStringLiteral("Connecting To Host");
    case InternetTransfer::Connected:
        return connected;
    case InternetTransfer::Requesting:
        return QStringLiteral("Sending Request");
    case InternetTransfer::RequestSent:
        return QStringLiteral("Request Sent");
    case InternetTransfer::ReceivingResponse:
        return QStringLiteral("Receiving Response");
    case InternetTransfer::ResponseReceived:
        return QStringLiteral("Response Received");
    case InternetTransfer::Disconnecting:
        return QStringLiteral("Disconnecting");
    case InternetTransfer::Disconnected:
        return notConnected;
    default:
        return {};
    }
}

bool isFolder(const QString &row)
{
    return row.endsWith(u'/');
}

QString withoutBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && text[first] == u' ')
        ++first;
    while (end > first && text[end - 1] == u' ')
        --end;
    return text.mid(first, end - first);
}

} // namespace

// ---- Load, unload and waits

void frmFTP::Form_Load()
{
    const FtpProfile profile = FtpProfileFile::readFirst();
    txtAccount->setText(profile.account);
    txtServer->setText(profile.server);
    txtUserName->setText(profile.userName);
    txtPassword->setText(profile.password);
    for (QLineEdit *box : {txtAccount, txtServer, txtUserName})
        box->setCursorPosition(0); // a long text shows its beginning
    GettingSize = false;
}

void frmFTP::Form_Unload()
{
    ITC->Cancel();
}

bool frmFTP::FTPIsIdle(bool ShowMessage)
{
    if (!ITC->StillExecuting())
        return true;
    if (ShowMessage)
        Ask(QStringLiteral("Please wait.  FTP is still executing"), MsgBoxStyle::Information,
            QStringLiteral("Busy"));
    return false;
}

/// States are reported meanwhile, and buttons may be pressed. Returns false where the window was closed.
bool frmFTP::waitUntilIdle()
{
    while (!FTPIsIdle(false))
        waitForEvents();
    return isLoaded();
}

void frmFTP::execute(const QString &command)
{
    ITC->Execute({}, command);
}

/// Runs a command that changes what the server's folder holds.
void frmFTP::change(const QString &command)
{
    execute(command);
    refresh();
}

/// Waits for the command that runs and asks for the list again, whose rows come later.
void frmFTP::refresh()
{
    if (!waitUntilIdle())
        return;
    lstRemoteFile->Clear();
    execute(FtpCommand::list); // Intended: after a loss or a Disconnect meanwhile this logs on again
    setStatus(connected);
}

// ---- Log-on and log-off

void frmFTP::cmdLogOn_Click()
{
    try {
        logOn();
    } catch (const RuntimeError &) {
        Ask(QStringLiteral("Logon attempt failed"), MsgBoxStyle::Information, logOnFailure);
        ITC->Cancel();
        setStatus(notConnected);
        const bool isParked = parkFocus();
        cmdLogOn->setEnabled(true);
        setConnected(false);
        if (isParked)
            cmdLogOn->setFocus();
    }
}

void frmFTP::logOn()
{
    CloseFormByName(QStringLiteral("frmFTPAccounts"));
    if (txtServer->text().isEmpty() || txtPassword->text().isEmpty()) {
        Ask(QStringLiteral("You must specify a server and password."), MsgBoxStyle::Information,
            logOnFailure);
        return;
    }
    setStatus(QStringLiteral("Connecting"));
    ITC->setProtocol(InternetTransfer::icFTP);
    ITC->setRemoteHost(txtServer->text());
    ITC->setUserName(txtUserName->text().isEmpty() ? QStringLiteral("anonymous") : txtUserName->text());
    ITC->Cancel();
    parkFocus();
    cmdLogOn->setEnabled(false);
    ITC->setPassword(txtPassword->text());
    ITC->setRequestTimeout(requestTimeout);
    execute(FtpCommand::list);
    if (!waitUntilIdle())
        return;
    setStatus(connected); // Intended: also where the server refused
    setConnected(true);
    if (isFocusParked())
        lstRemoteFile->setFocus();
}

void frmFTP::cmdLogOff_Click()
{
    lstRemoteFile->Clear();
    ITC->Cancel();
    if (!waitUntilIdle())
        return;
    setStatus(QStringLiteral("Closing Connection"));
    if (FTPIsIdle(false))
        ignoreErrors([&] { execute(FtpCommand::close); });
    else
        ITC->Cancel();
    setDisconnected();
}

void frmFTP::cmdAccounts_Click()
{
    Forms::refer<frmFTPAccounts>().showModal(window());
}

void frmFTP::setStatus(const QString &status)
{
    lblStatus->setText(status);
}

/// The controls that need a connection.
QList<QWidget *> frmFTP::connectionControls() const
{
    return {cmdNewFolder, cmdDelete,  cmdRename,     cmdSize,  cmdUpFolder,
            cmdsend,      cmdreceive, lstRemoteFile, cmdLogOff};
}

void frmFTP::setConnected(bool connected)
{
    for (QWidget *control : connectionControls())
        control->setEnabled(connected);
}

void frmFTP::setDisconnected()
{
    setStatus(notConnected);
    const bool isParked = parkFocus();
    cmdLogOn->setEnabled(false);
    setConnected(false);
    cmdLogOn->setEnabled(true);
    if (isParked)
        cmdLogOn->setFocus();
}

/// Takes the focus away from the controls that are about to be disabled, from which it would jump to any
/// other one, to the status label, where no key does anything. Returns whether it is there, for the caller to
/// give it back.
bool frmFTP::parkFocus()
{
    QWidget *focused = window()->focusWidget();
    if (focused == cmdLogOn || connectionControls().contains(focused))
        lblStatus->setFocus();
    return isFocusParked();
}

/// False where the user has gone on to another control or window meanwhile. A click beside the controls, or
/// on a disabled one, gives the focus to what is behind them.
bool frmFTP::isFocusParked() const
{
    const QWidget *focused = window()->focusWidget();
    return !focused || focused == lblStatus || focused->isAncestorOf(this);
}

// ---- What the session reports

void frmFTP::ITC_StateChanged(int state)
{
    const QString status = statusOf(state);
    if (!status.isEmpty())
        setStatus(status);
    else if (state == InternetTransfer::Error)
        showError();
    else if (state == InternetTransfer::ResponseCompleted)
        showResponse();
}

void frmFTP::showError()
{
    const int code = ITC->ResponseCode();
    if (code == TransferError::ConnectionLost) {
        setDisconnected();
        ITC->Cancel();
    }
    if (code != TransferError::InvalidParameter)
        Ask(QString::number(code) + u' ' + ITC->ResponseInfo(), MsgBoxStyle::Critical,
            QStringLiteral("Error"));
}

void frmFTP::showResponse()
{
    QString response;
    for (;;) {
        const QString piece = ITC->GetChunk(pieceSize);
        if (piece.isEmpty())
            break;
        processPendingEvents(); // Intended: after a Disconnect in here the rows so far come into the list
        response += piece;
    }
    if (!isLoaded())
        return;
    Beep();
    // Intended: also for CLOSE or the list of a new log-on, where the user has disconnected or connected
    // while a size was waited for.
    if (GettingSize)
        Ask(QStringLiteral("The size of file ") + selectedRow() + QStringLiteral(" is ") + response +
                QStringLiteral(" bytes"),
            MsgBoxStyle::Information, QStringLiteral("Size"));
    else
        lstRemoteFile->addItems(ListingRows::of(response));
}

// ---- The server's folder

QString frmFTP::selectedRow() const
{
    return lstRemoteFile->Text();
}

void frmFTP::lstRemoteFile_DblClick()
{
    if (!FTPIsIdle(true))
        return;
    if (isFolder(selectedRow()))
        change(FtpCommand::openFolder(selectedRow()));
    else
        cmdreceive_Click();
}

void frmFTP::lstRemoteFile_KeyDown(int key)
{
    if (lstRemoteFile->ListIndex() < 0)
        return;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        lstRemoteFile_DblClick();
    else if (key == Qt::Key_Delete)
        cmdDelete_Click();
    else if (key == Qt::Key_F2)
        cmdRename_Click();
}

void frmFTP::cmdUpFolder_Click()
{
    if (FTPIsIdle(true))
        change(FtpCommand::folderUp);
}

void frmFTP::cmdNewFolder_Click()
{
    if (!FTPIsIdle(true))
        return;
    const QString title = QStringLiteral("New Folder");
    const QString name = InputBox(QStringLiteral("Enter new folder name"), title);
    if (!isLoaded())
        return;
    for (int row = 0; row < lstRemoteFile->ListCount(); ++row) {
        if (lstRemoteFile->List(row) != name + u'/')
            continue;
        Ask(QStringLiteral("Folder ") + name + QStringLiteral(" already exists."), MsgBoxStyle::Information,
            title);
        return;
    }
    change(FtpCommand::makeFolder(name)); // Intended: also without a name
}

void frmFTP::cmdDelete_Click()
{
    const QString row = selectedRow();
    if (row == QLatin1String("./") || row == QLatin1String("../")) {
        Ask(QStringLiteral("You cannot delete the '.' or '..' directories."), MsgBoxStyle::Critical,
            QStringLiteral("Cannot Delete Selection.."));
        return;
    }
    if (!FTPIsIdle(true))
        return;
    const int reply = Ask(QStringLiteral("Delete ") + row + QStringLiteral(" ?"),
                          MsgBoxStyle::OkCancel | MsgBoxStyle::Question, QStringLiteral("Delete"));
    if (reply == MsgBoxReply::Ok && isLoaded())
        change(isFolder(row) ? FtpCommand::removeFolder(row) : FtpCommand::removeFile(row));
}

void frmFTP::cmdRename_Click()
{
    if (!FTPIsIdle(true))
        return;
    const QString title = QStringLiteral("Rename");
    const QString row = selectedRow();
    const QString name = InputBox(QStringLiteral("Enter new file name for ") + row, title);
    if (!isLoaded())
        return;
    if (withoutBlanks(name).isEmpty())
        Ask(QStringLiteral("Invalid Name"), MsgBoxStyle::Information, title);
    else
        change(FtpCommand::rename(row, name));
}

void frmFTP::cmdSize_Click()
{
    if (!FTPIsIdle(true))
        return;
    GettingSize = true; // before the command, whose response comes during the wait
    execute(FtpCommand::size(selectedRow()));
    if (!waitUntilIdle())
        return;
    GettingSize = false;
    setStatus(connected);
}

// ---- Transfers

void frmFTP::cmdsend_Click()
{
    if (!FTPIsIdle(true))
        return;
    const QString name = filLocalFile->FileName();
    if (withoutBlanks(name).isEmpty())
        Ask(QStringLiteral("Please select a file to send."), MsgBoxStyle::Critical, QStringLiteral("Error"));
    else if (mayOverwrite(name))
        change(FtpCommand::send(name, filLocalFile->Path()));
}

/// Asks for each row of that name. Returns false also where the window is closed meanwhile.
bool frmFTP::mayOverwrite(const QString &name)
{
    for (int row = 0; row < lstRemoteFile->ListCount(); ++row) {
        if (lstRemoteFile->List(row) != name)
            continue;
        const int reply = Ask(QStringLiteral("File ") + name + QStringLiteral(" already exists.\nOverwrite?"),
                              MsgBoxStyle::YesNo | MsgBoxStyle::Question, QStringLiteral("Overwrite"));
        if (reply == MsgBoxReply::No || !isLoaded())
            return false;
    }
    return true;
}

void frmFTP::cmdreceive_Click()
{
    if (!FTPIsIdle(true))
        return;
    const QString row = selectedRow();
    if (isFolder(row)) {
        Ask(row + QStringLiteral(" is a folder and cannot be sent."), // Intended: "sent"
            MsgBoxStyle::Critical, QStringLiteral("Error"));
    } else if (existsHere(row)) {
        Ask(QStringLiteral("File ") + row + QStringLiteral(" already exists."), MsgBoxStyle::Information,
            QStringLiteral("Recieve")); // Intended: "Recieve"
    } else {
        execute(FtpCommand::receive(row, filLocalFile->Path())); // Intended: also without a row
        if (!waitUntilIdle())
            return;
        filLocalFile->Refresh();
        setStatus(connected);
    }
}

bool frmFTP::existsHere(const QString &name) const
{
    for (int index = 0; index < filLocalFile->ListCount(); ++index) {
        if (filLocalFile->List(index) == name)
            return true;
    }
    return false;
}

// ---- The local disk

void frmFTP::drvLocalDrive_Change()
{
    ignoreErrors([&] { dirLocalDir->setPath(drvLocalDrive->Drive()); });
}

void frmFTP::dirLocalDir_Change()
{
    ignoreErrors([&] { filLocalFile->setPath(dirLocalDir->Path()); }); // the folder may be gone since
}
