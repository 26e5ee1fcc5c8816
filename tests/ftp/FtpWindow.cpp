#include "FtpWindow.h"

#include "Beep.h"
#include "DirListBox.h"
#include "FileListBox.h"
#include "FileNames.h"
#include "Forms.h"
#include "PrintQt.h"
#include "frmFTPAccounts.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

} // namespace

FtpWindow::FtpWindow()
{
    programFolder.addFile("ftpprof.dat", profiles);
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
    QString response;
    for (const QString &row : rows)
        response += row + QStringLiteral("\r\n");
    session().respond(QStringLiteral("DIR"), response);
    click("cmdLogOn");
    EXPECT_EQ(this->rows(), rows);
    StandInSession::calls.clear();
    beeps = 0;
}

void FtpWindow::click(const char *name) const
{
    auto &button = control<QAbstractButton>(name);
    EXPECT_TRUE(button.isEnabled()) << name;
    QTest::mouseClick(&button, Qt::LeftButton);
    settle();
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

void FtpWindow::addLocalFile(const QByteArray &name) const
{
    local.addFile(name);
    auto &files = control<FileListBox>("filLocalFile");
    files.Refresh();
    for (int i = 0; i < files.ListCount(); ++i) {
        if (files.List(i) == FileNames::fromBytes(name))
            files.setCurrentIndex(files.model()->index(i, 0));
    }
    ASSERT_EQ(files.FileName(), FileNames::fromBytes(name));
}
