#include "BrowserWindow.h"

#include "Files.h"
#include "Forms.h"
#include "Toolbar.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {

constexpr int patience = 60000; // milliseconds, on a busy machine
const QString displaying = QStringLiteral("Tallowick Quill-Office Tools Browser Displaying: ");

} // namespace

BrowserWindow::BrowserWindow()
{
    Files::write(programFolder.file("publisher.ini"),
                 "[hosts]\nweb=" + server.host().toUtf8() +
                     "\n[pages]\nHome=/home\nSearch=/search\nTallowick=/\nQuillOffice=/quilloffice/\n");
    Forms::registerWindow(QStringLiteral("frmBrowser"), Forms::Instances::Many,
                          [] { return new frmBrowser; });
}

void BrowserWindow::open(const QString &path)
{
    m_form = static_cast<frmBrowser *>(&Forms::refer(QStringLiteral("frmBrowser")));
    if (!path.isEmpty())
        m_form->setProperty("StartingAddress", server.address(path));
    m_form->showModeless();
}

void BrowserWindow::enter(const QString &address) const
{
    box().lineEdit()->setFocus();
    box().lineEdit()->selectAll();
    QTest::keyClicks(box().lineEdit(), address);
    QTest::keyClick(box().lineEdit(), Qt::Key_Return);
}

void BrowserWindow::press(const char *key) const
{
    m_form->member<Toolbar>(QStringLiteral("tbToolBar")).button(QString::fromLatin1(key)).trigger();
}

QStringList BrowserWindow::list() const
{
    QStringList addresses;
    for (int row = 0; row < box().count(); ++row)
        addresses << box().itemText(row);
    return addresses;
}

QString BrowserWindow::caption(const QString &title)
{
    return displaying + title;
}

QString BrowserWindow::shownTitle() const
{
    return m_form->Caption().mid(displaying.size());
}

/// Sleeps between two events: what polls makes each page take a second.
void BrowserWindow::waitFor(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(patience);
    QTimer tick; // for conditions that no event of this process goes with
    tick.start(20);
    while (!condition()) {
        ASSERT_FALSE(deadline.hasExpired());
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void BrowserWindow::waitForTitle(const QString &title) const
{
    waitFor([&] { return !isOpen() || (m_form->Caption() == caption(title) && !control().Busy()); });
}
