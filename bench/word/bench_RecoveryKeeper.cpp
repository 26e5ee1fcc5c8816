#include "ForkedTask.h"
#include "Form.h"
#include "RecoveryKeeper.h"
#include "RichTextBox.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

// Typing in a long document while recovery copies of it are kept, beside typing without them.
//
//     QT_QPA_PLATFORM=offscreen bench_RecoveryKeeper FILE
//
// Keys come at an even pace, whether or not the one before has been processed. Milliseconds from the moment
// at which a key is due to the end of its painting.

namespace {

constexpr int keys = 1000;
constexpr int pace = 40; // milliseconds

class Window : public Form
{
public:
    explicit Window(const QString &path)
        : Form(QStringLiteral("Window"))
        , text(new RichTextBox(this))
    {
        resize(800, 600);
        text->resize(size());
        text->LoadFile(path);
        show();
        (void)QTest::qWaitForWindowExposed(this);
        const auto isLaidOut = [this] { return text->document()->lastBlock().layout()->lineCount() > 0; };
        (void)QTest::qWaitFor(isLaidOut, 60000);
    }

    RichTextBox *text;
};

/// Milliseconds of processor time of this thread.
double spent()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double cost(const std::function<void()> &step)
{
    const double before = spent();
    step();
    return spent() - before;
}

QList<double> type(Window &window)
{
    QList<double> times;
    for (int key = 0; key < keys; ++key) {
        double inItsWay = 0;
        for (QDeadlineTimer due(pace); !due.hasExpired(); QThread::usleep(200))
            inItsWay = qMax(inItsWay, cost([] { QCoreApplication::processEvents(); }));
        times.append(inItsWay + cost([&] {
                         QTest::keyClick(window.text, Qt::Key_A);
                         window.text->viewport()->repaint();
                     }));
    }
    std::sort(times.begin(), times.end());
    return times;
}

void print(const char *what, const QList<double> &times)
{
    std::printf("  %-24s %8.1f %8.1f %8.1f\n", what, times.at(keys / 2), times.at(keys * 99 / 100),
                times.last());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2)
        return 1;
    const QTemporaryDir state;
    qputenv("XDG_STATE_HOME", state.path().toUtf8());
    Window window(QFile::decodeName(argv[1]));
    std::printf("  %-24s %8s %8s %8s\n", "milliseconds", "median", "p99", "longest");
    print("without copies", type(window));
    RecoveryKeeper keeper(*window.text, window);
    QObject::connect(window.text, &RichTextBox::Change, &keeper, &RecoveryKeeper::changed);
    print("copies every 3 seconds", type(window));
    std::printf("  %-24s %8.1f\n", "writing the rich text", cost([&] { (void)window.text->TextRTF(); }));
    ForkedTask task;
    std::printf("  %-24s %8.1f\n", "making a process", cost([&] { task.start([] { return true; }); }));
    keeper.settled();
    return 0;
}
