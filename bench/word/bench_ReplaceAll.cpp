#include "FindFlag.h"
#include "Milliseconds.h"
#include "RichTextBox.h"
#include "clsFindandReplace.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <cstdio>

// Replaces every "harvest" of a file by "gathering" and undoes it, for bench_replace_all.py, which makes the
// file and prints what this measures beside the reference program.
//
//     QT_QPA_PLATFORM=offscreen bench_ReplaceAll FILE

namespace {

/// Megabytes of this process: "VmRSS" now, "VmHWM" at most since forgetPeak().
double memory(const char *kind)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QFile::ReadOnly))
        return 0;
    const QRegularExpression line(QStringLiteral("%1:\\s+(\\d+) kB").arg(QString::fromLatin1(kind)));
    constexpr double perMegabyte = 1000;
    return line.match(QString::fromLatin1(status.readAll())).captured(1).toDouble() / perMegabyte;
}

void forgetPeak()
{
    QFile marks(QStringLiteral("/proc/self/clear_refs"));
    if (marks.open(QFile::WriteOnly))
        marks.write("5");
}

bool isLaidOut(const RichTextBox &box)
{
    return box.document()->lastBlock().layout()->lineCount() > 0;
}

void measure(const QString &path)
{
    RichTextBox box;
    box.resize(800, 600);
    box.show();
    (void)QTest::qWaitForWindowExposed(&box);
    box.LoadFile(path);
    (void)QTest::qWaitFor([&] { return isLaidOut(box); }, 60000);

    clsFindandReplace find;
    box.setSelStart(int(box.Text().indexOf(QStringLiteral("harvest"))));
    box.setSelLength(7);
    find.ShowReplace(box);
    const double before = memory("VmRSS");
    forgetPeak();
    const double replacing = milliseconds([&] {
        find.Messages_WMArrival({FindFlag::ReplaceAll | FindFlag::Down | FindFlag::MatchCase,
                                 QStringLiteral("harvest"), QStringLiteral("gathering")});
        box.viewport()->repaint();
    });
    const double peak = memory("VmHWM");
    const auto hits = int(box.Text().count(QStringLiteral("gathering")));
    (void)QTest::qWaitFor([&] { return isLaidOut(box); }, 60000);
    const double undoing = milliseconds([&] {
        box.undo();
        box.viewport()->repaint();
    });
    const auto left = int(box.Text().count(QStringLiteral("gathering")));
    std::printf("%d %d %.1f %.1f %.1f %.1f\n", hits, left, replacing, undoing, before, peak);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    measure(QFile::decodeName(argv[1]));
    return 0;
}
