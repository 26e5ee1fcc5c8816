#include "frmBrowser.h"

#include "Ask.h"
#include "CommonDialog.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "LocationBox.h"
#include "PageBox.h"
#include "Publisher.h"
#include "ShownText.h"
#include "Toolbar.h"
#include "TypedAddress.h"
#include "WebControl.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>

namespace {

constexpr int enterKey = 13;
constexpr int longestTitle = 256;    // letters of a page's title
constexpr int longestAddress = 8192; // letters of an entry of the list

/// Of the window's own boxes: its title may be a page's.
const QString ownTitle = QStringLiteral("Tallowick Web Browser");

} // namespace

void frmBrowser::Form_Load()
{
    showModeless();
    tbToolBar->repaint();
    Form_Resize();
    if (StartingAddress.isEmpty())
        return;
    ignoreErrors([&] {
        cboAddress->setText(StartingAddress);
        cboAddress->AddItem(StartingAddress);
        timTimer->start();
        navigate(StartingAddress);
    });
}

bool frmBrowser::Form_QueryUnload()
{
    return !WebBrowser2->isReceiving() ||
           Ask(QStringLiteral("A file is still being received. Close the window and give the file up?"),
               MsgBoxStyle::YesNo | MsgBoxStyle::Question | MsgBoxStyle::DefaultButton2,
               ownTitle) == MsgBoxReply::Yes;
}

void frmBrowser::Form_Unload()
{
    timTimer->stop();
    WebBrowser2->Stop();
}

void frmBrowser::navigate(const QString &address)
{
    WebBrowser2->Navigate(TypedAddress::url(address));
}

// ---- The address

void frmBrowser::cboAddress_Click()
{
    if (IgnoreAddressClick)
        return;
    ignoreErrors([&] {
        timTimer->start();
        navigate(cboAddress->Text());
    });
}

void frmBrowser::cboAddress_KeyPress(int KeyAscii)
{
    if (KeyAscii == enterKey)
        cboAddress_Click();
}

void frmBrowser::Command1_Click()
{
    cboAddress_KeyPress(enterKey);
}

void frmBrowser::WebBrowser2_DownloadComplete()
{
    showTitle();
}

void frmBrowser::WebBrowser2_NavigateComplete()
{
    showTitle();
    ignoreErrors([&] { selectAddress(); });
}

/// The list is in the order of the last visits, each address once.
void frmBrowser::selectAddress()
{
    const QString address = WebBrowser2->LocationURL().toString(QUrl::FullyEncoded);
    if (address.size() > longestAddress)
        return;
    IgnoreAddressClick = true;
    const int earlier = cboAddress->indexOf(address);
    if (earlier >= 0)
        cboAddress->RemoveItem(earlier);
    cboAddress->AddItem(address, 0);
    cboAddress->setListIndex(0);
    IgnoreAddressClick = false;
}

// ---- The title

void frmBrowser::timTimer_Timer()
{
    if (WebBrowser2->Busy()) {
        setCaption(QStringLiteral("Working..."));
        return;
    }
    timTimer->stop();
    showTitle();
}

void frmBrowser::showTitle()
{
    const QString name = WebBrowser2->LocationName();
    setCaption(QStringLiteral("Tallowick Quill-Office Tools Browser Displaying: ") +
               ShownText::line(name.left(longestTitle)));
}

// ---- The toolbar

void frmBrowser::tbToolBar_ButtonClick(const QString &key)
{
    timTimer->start();
    ignoreErrors([&] {
        if (key == QLatin1String("Back"))
            WebBrowser2->GoBack();
        else if (key == QLatin1String("Forward"))
            WebBrowser2->GoForward();
        else if (key == QLatin1String("Refresh"))
            WebBrowser2->Refresh();
        else if (key == QLatin1String("Home"))
            WebBrowser2->GoHome();
        else if (key == QLatin1String("Search"))
            WebBrowser2->GoSearch();
        else if (key == QLatin1String("Stop"))
            stop();
        else if (key == QLatin1String("Exit"))
            unload();
        else
            visitPublisher(key);
    });
}

void frmBrowser::stop()
{
    timTimer->stop();
    WebBrowser2->Stop();
    showTitle();
}

void frmBrowser::visitPublisher(const QString &key)
{
    const QString address = Publisher::page(key);
    cboAddress->setText(address);
    navigate(address);
    cboAddress->AddItem(address);
}

// ---- What pages ask for

void frmBrowser::WebBrowser2_PageCrashed()
{
    if (!isLoaded())
        return;
    timTimer->stop();
    Ask(QStringLiteral("The page has stopped working. Refresh loads it again."), MsgBoxStyle::Exclamation,
        ownTitle);
}

void frmBrowser::WebBrowser2_SaveWanted(const QString &suggestedName, QString &path)
{
    CommonDialog dialog(this);
    dialog.DialogTitle = QStringLiteral("Save File");
    dialog.Filter = QStringLiteral("All Files (*.*)|*.*");
    dialog.InitDir = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    dialog.FileName = PageBox::suggestedName(suggestedName);
    dialog.Flags = CommonDialog::OverwritePrompt | CommonDialog::HideReadOnly;
    dialog.CancelError = true;
    ignoreErrors([&] {
        dialog.ShowSave();
        path = dialog.FileName;
    });
}

void frmBrowser::WebBrowser2_FileWanted(QString &path)
{
    CommonDialog dialog(this);
    dialog.DialogTitle = QStringLiteral("Send File");
    dialog.Filter = QStringLiteral("All Files (*.*)|*.*");
    dialog.Flags = CommonDialog::HideReadOnly;
    dialog.CancelError = true;
    ignoreErrors([&] {
        dialog.ShowOpen();
        path = dialog.FileName;
    });
}

void frmBrowser::WebBrowser2_Received(const QString &path, const QString &failure)
{
    if (!isLoaded())
        return;
    const QString name = ShownText::line(QFileInfo(path).fileName());
    if (failure.isEmpty())
        Ask(QStringLiteral("%1 has been saved.").arg(name), MsgBoxStyle::Information, ownTitle);
    else
        Ask(QStringLiteral("%1 could not be received: %2.").arg(name, failure), MsgBoxStyle::Exclamation,
            ownTitle);
}
