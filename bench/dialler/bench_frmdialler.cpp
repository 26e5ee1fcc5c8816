#include "EntryRoutine.h"
#include "Files.h"
#include "Form.h"
#include "FrameCommands.h"
#include "Globals.h"
#include "Look.h"
#include "Paths.h"
#include "Pause.h"
#include "Settings.h"
#include "TelephoneSettings.h"
#include "WindowTable.h"
#include "frmMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>

// The dialler's window in the frame of the whole suite, in both modes, without a line and with ten of them.
//
// Milliseconds from the command until the window is painted, which is when it begins to wait, and until it
// can be used, without its waits; medians and the longest. Beside them the same for the calculator, which
// does not wait.

namespace {

constexpr int rounds = 30;

QString row(QList<double> times)
{
    std::sort(times.begin(), times.end());
    return QString::asprintf("%8.1f %8.1f", times.at(times.size() / 2), times.constLast());
}

/// Runs \a command again and again. What is opened by it is closed.
void measure(const char *title, const char *command)
{
    auto &frame = *static_cast<frmMain *>(mainFrame);
    QList<double> painted;
    QList<double> usable;
    for (int round = 0; round < rounds; ++round) {
        double first = 0;
        QElapsedTimer timer;
        const auto elapsed = [&] { return double(timer.nsecsElapsed()) / 1e6; };
        setPause([&](int) { first = first == 0 ? elapsed() : first; });
        timer.start();
        FrameCommands::run(QString::fromLatin1(command), frame);
        frame.repaint();
        usable.append(elapsed());
        painted.append(first == 0 ? usable.constLast() : first);
        QCoreApplication::processEvents();
        frame.ActiveForm()->unload();
        QCoreApplication::processEvents();
    }
    setPause({});
    std::printf("  %-24s painted %s   usable %s\n", title, qPrintable(row(painted)), qPrintable(row(usable)));
}

void measureAll()
{
    measure("calculator", "Calculator");
    measure("set-up, no line", "diallersetup");
    measure("keypad, no line", "dialleruse");
    TelephoneSettings settings;
    for (int line = 0; line < 10; ++line) {
        LineSettings account;
        account.label = QStringLiteral("Line %1").arg(line);
        account.user = QStringLiteral("user");
        account.server = QStringLiteral("sip.example.org");
        settings.lines.append(account);
    }
    settings.write();
    measure("set-up, ten lines", "diallersetup");
    measure("keypad, ten lines", "dialleruse");
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_STATE_HOME", home.filePath(QStringLiteral("state")).toLocal8Bit());
    const QApplication application(argc, argv);
    Paths::setAppPath(home.path());
    Files::write(home.filePath(QStringLiteral("dialler.dat")), " 0 \r\n");
    Settings::save(Paths::applicationTitle, QStringLiteral("Options"),
                   QStringLiteral("Show Splash at Startup"), QStringLiteral("0"));
    Look::apply();
    WindowTable::registerAll();
    EntryRoutine();
    (void)QTest::qWaitForWindowActive(static_cast<frmMain *>(mainFrame));
    measureAll();
    std::fflush(stdout);
    std::_Exit(0); // the frame would write its place
}
