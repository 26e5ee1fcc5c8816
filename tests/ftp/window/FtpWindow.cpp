#include "FtpWindow.h"

#include "Beep.h"
#include "DirListBox.h"
#include "FileListBox.h"
#include "FileNames.h"
#include "Forms.h"
#include "PrintQt.h"
#include "frmFTPAccounts.h"

#include <QDeadlineTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int patience = 20000; // milliseconds

QByteArray listingOf(const QStringList &rows)
{
    QByteArray listing;
    for (const QString &row : rows) {
        const bool isFolder = row.endsWith(u'/');
        listing += QByteArray(isFolder ? "type=dir; " : "type=file; ") +
                   FileNames::toBytes(isFolder ? row.chopped(1) : row) + "\r\n";
    }
    return listing;
}

bool isPreparation(const QByteArray &request)
{
    constexpr const char *verbs[] = {"TYPE", "OPTS", "EPSV", "MDTM", "QUIT"};
    return std::any_of(std::begin(verbs), std::end(verbs),
                       [&](const char *verb) { return request.startsWith(verb); });
}

} // namespace

FtpWindow::FtpWindow()
{
    programFolder.addFile("ftpprof.dat", profiles());
    Forms::registerWindow(QStringLiteral("frmFTP"), Forms::Instances::One, [] { return new frmFTP; });
    Forms::registerWindow(QStringLiteral("frmFTPAccounts"), Forms::Instances::One,
                          [] { return new frmFTPAccounts; });
    setBeep([this] { ++beeps; });
    open();
    control<DirListBox>("dirLocalDir").setPath(local.path());
}

FtpWindow::~FtpWindow()
{
    setBeep({});
}

QByteArray FtpWindow::profiles() const
{
    const QByteArray address = server.address().toLatin1();
    return "0,Mirror," + address + ",tester,secret,extra\r\n1,Second," + address + ",,pass,\r\n";
}

void FtpWindow::open()
{
    auto &window = Forms::refer<frmFTP>();
    window.showModeless();
    m_form = &window;
}

void FtpWindow::close()
{
    m_form->findChild<QAction *>(QStringLiteral("mnuclose"))->trigger();
    settle();
}

void FtpWindow::logOn(const QStringList &rows)
{
    if (!isEnabled("cmdLogOn"))
        click("cmdLogOff");
    server.setListing(listingOf(rows));
    click("cmdLogOn");
    EXPECT_TRUE(rows.isEmpty() || this->rows() == rows) << qUtf8Printable(this->rows().join(u'|'));
    forget();
}

void FtpWindow::forget()
{
    server.forgetCommands();
    probe.forgetStates();
    executed.forget();
    beeps = 0;
}

QString FtpWindow::commands() const
{
    QStringList commands;
    for (const QByteArray &line : server.commands()) {
        if (!isPreparation(line))
            commands << FileNames::fromBytes(line);
    }
    return commands.join(u'|');
}

void FtpWindow::click(const char *name) const
{
    auto &button = control<QAbstractButton>(name);
    EXPECT_TRUE(button.isEnabled()) << name;
    QTest::mouseClick(&button, Qt::LeftButton);
    settle();
}

void FtpWindow::settle() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    waitFor([this] { return !isOpen() || !session().StillExecuting() || server.isHolding(); });
}

void FtpWindow::whileListIsRead(const std::function<void()> &step)
{
    probe.atState(InternetTransfer::ResponseCompleted, [this, step] { // of the command itself
        probe.atState(InternetTransfer::ResponseCompleted,
                      [this, step] { QMetaObject::invokeMethod(m_form, step, Qt::QueuedConnection); });
    });
}

/// The driver of the dialogs wakes the loop again and again.
void FtpWindow::waitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(patience);
    while (!condition()) {
        ASSERT_FALSE(deadline.hasExpired());
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

bool FtpWindow::isEnabled(const char *name) const
{
    return control<QWidget>(name).isEnabled();
}

QString FtpWindow::status() const
{
    return control<QLabel>("lblStatus").text();
}

ListBox &FtpWindow::remote() const
{
    return control<ListBox>("lstRemoteFile");
}

QStringList FtpWindow::rows() const
{
    QStringList rows;
    for (int i = 0; i < remote().ListCount(); ++i)
        rows << remote().List(i);
    return rows;
}

void FtpWindow::selectRow(const QString &row) const
{
    const qsizetype index = rows().indexOf(row);
    ASSERT_GE(index, 0) << qUtf8Printable(row);
    remote().setListIndex(int(index));
}

void FtpWindow::doubleClickRow(const QString &row) const
{
    selectRow(row);
    const QModelIndex index = remote().currentIndex();
    remote().scrollTo(index);
    const QPoint place = remote().visualRect(index).center();
    QTest::mouseClick(remote().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(remote().viewport(), Qt::LeftButton, {}, place);
    settle();
}

void FtpWindow::addLocalFile(const QByteArray &name, const QByteArray &content) const
{
    local.addFile(name, content);
    selectLocalFile(name);
}

void FtpWindow::selectLocalFile(const QByteArray &name) const
{
    auto &files = control<FileListBox>("filLocalFile");
    files.Refresh();
    for (int i = 0; i < files.ListCount(); ++i) {
        if (files.List(i) == FileNames::fromBytes(name))
            files.setCurrentIndex(files.model()->index(i, 0));
    }
    ASSERT_EQ(files.FileName(), FileNames::fromBytes(name));
}
