#include "Beep.h"
#include "DirListBox.h"
#include "EntryRoutine.h"
#include "EventGate.h"
#include "Files.h"
#include "Forms.h"
#include "Globals.h"
#include "InternetTransfer.h"
#include "ListBox.h"
#include "Look.h"
#include "PaintCounter.h"
#include "Paths.h"
#include "Settings.h"
#include "WindowTable.h"
#include "frmFTP.h"
#include "frmMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

// The FTP window in the frame of the whole suite, as bench_transfer.py asks for it:
//
//     bench_frmFTP HOST:PORT USER PASSWORD              logs on, which fills the list
//     bench_frmFTP HOST:PORT USER PASSWORD NAME FOLDER  and then receives the file NAME
//
// The frame is asked to repaint all the time. Prints the milliseconds of the last step, from the click to the
// painted end, those of them after the server's last reply, how often the frame was painted meanwhile, the
// longest time in milliseconds in which it was not, and how many rows the list has.

namespace {

/// The program's folder, whose first profile is what the window logs on with.
void prepareFolder(const QString &folder, const QStringList &arguments)
{
    Paths::setAppPath(folder);
    const QStringList fields = {
        QStringLiteral("0"), QStringLiteral("Bench"), arguments[1], arguments[2], arguments[3], QString()};
    Files::write(folder + QStringLiteral("/ftpprof.dat"), fields.join(u',').toUtf8() + "\r\n");
    Settings::save(Paths::applicationTitle, QStringLiteral("Options"),
                   QStringLiteral("Show Splash at Startup"), QStringLiteral("0"));
}

int indexOf(const ListBox &list, const QString &row)
{
    int index = 0;
    while (index < list.ListCount() && list.List(index) != row)
        ++index;
    return index;
}

void measure(const QStringList &arguments)
{
    WindowTable::registerAll();
    EntryRoutine();
    auto &frame = *static_cast<frmMain *>(mainFrame);
    (void)QTest::qWaitForWindowActive(&frame);
    auto &form = Forms::refer<frmFTP>();
    form.showModeless();
    auto &list = form.member<ListBox>(QStringLiteral("lstRemoteFile"));
    processPendingEvents();

    PaintCounter paints(frame);
    on(&form.member<InternetTransfer>(QStringLiteral("ITC")), &InternetTransfer::StateChanged, &form,
       [&](int state) {
           if (state == InternetTransfer::ResponseReceived)
               paints.markReply();
       });
    paints.start();
    form.member<QAbstractButton>(QStringLiteral("cmdLogOn")).click(); // it returns when the list is there
    list.repaint();
    paints.stop();
    if (arguments.size() == 6) {
        form.member<DirListBox>(QStringLiteral("dirLocalDir")).setPath(arguments[5]);
        list.setListIndex(indexOf(list, arguments[4]));
        paints.start();
        form.member<QAbstractButton>(QStringLiteral("cmdreceive")).click();
        paints.stop();
    }
    std::printf("%lld %lld %d %lld %d\n", paints.elapsed(), paints.afterReply(), paints.count(),
                paints.longestGap(), list.ListCount());
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    for (const char *place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(place, home.path().toUtf8());
    QApplication application(argc, argv);
    if (argc != 4 && argc != 6) {
        std::fputs("bench_frmFTP HOST:PORT USER PASSWORD [NAME FOLDER]\n", stderr);
        return 2;
    }
    Look::apply();
    setBeep([] {});
    prepareFolder(home.path(), QCoreApplication::arguments());
    measure(QCoreApplication::arguments());
    std::fflush(stdout);
    std::_Exit(0); // the frame would ask about its document
}
