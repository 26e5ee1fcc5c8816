#include "BrowserWindow.h"

#include "Files.h"
#include "Forms.h"
#include "QtMessages.h"
#include "Toolbar.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <unistd.h>

namespace {

constexpr int patience = 60000; // milliseconds, on a busy machine
const QString displaying = QStringLiteral("Tallowick Quill-Office Tools Browser Displaying: ");

pid_t parentOf(pid_t process)
{
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    if (!status.open(QFile::ReadOnly))
        return 0;
    const QByteArray line = status.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ').value(1).toInt();
}

bool isBelow(pid_t process, pid_t above)
{
    while (process > 1 && process != above)
        process = parentOf(process);
    return process == above;
}

} // namespace

BrowserWindow::BrowserWindow()
{
    QtMessages::expect(QStringLiteral("No suitable graphics backend")); // of the offscreen platform
    Files::write(programFolder.file("publisher.ini"),
                 "[hosts]\nweb=" + server.host().toUtf8() +
                     "\n[pages]\nHome=/home\nSearch=/search\nTallowick=/\nQuillOffice=/quilloffice\n");
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
    QWindow *window = form().window()->windowHandle();
    box().setFocus();
    box().lineEdit()->selectAll();
    for (const QChar letter : address)
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, Qt::NoModifier);
    QTest::keyClick(window, Qt::Key_Return);
}

void BrowserWindow::press(const char *key) const
{
    m_form->member<Toolbar>(QStringLiteral("tbToolBar")).button(QString::fromLatin1(key)).trigger();
}

/// The engine's widget that takes the mouse and the keys.
QWidget &BrowserWindow::page() const
{
    QWidget *page = &control();
    while (page->focusProxy())
        page = page->focusProxy();
    return *page;
}

void BrowserWindow::clickPage(Qt::MouseButton button) const
{
    QTest::mouseClick(&page(), button, {}, QPoint(20, 20));
}

void BrowserWindow::typeIntoPage(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    page().setFocus();
    QTest::keyClick(form().window()->windowHandle(), key, modifiers); // as the desktop does, by the shortcuts
}

/// The engine forks it from a child of this process, with the same command line; it is the last one that was
/// made.
pid_t BrowserWindow::renderer() const
{
    pid_t found = 0;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")})) {
        const pid_t process = name.toInt();
        if (parentOf(process) != ::getpid() && isBelow(process, ::getpid()))
            found = std::max(found, process);
    }
    return found;
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

QByteArray BrowserWindow::titleWhenPainted(const QByteArray &title)
{
    return "<script>new PerformanceObserver(seen => { if "
           "(seen.getEntriesByName('first-contentful-paint').length) "
           "document.title = '" +
           title + "' }).observe({type: 'paint', buffered: true})</script>";
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
