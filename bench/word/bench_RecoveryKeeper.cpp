#include "Form.h"
#include "RecoveryKeeper.h"
#include "RichTextBox.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <memory>

// Typing in a long document while recovery copies of it are kept, beside typing without them.
//
//     QT_QPA_PLATFORM=offscreen bench_RecoveryKeeper FILE
//
// Keys come at an even pace, whatever has been done with the one before. Milliseconds from the moment at
// which a key is due to the end of its painting.

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

double sinceMilliseconds(const QElapsedTimer &clock)
{
    constexpr double perMillisecond = 1e6;
    return double(clock.nsecsElapsed()) / perMillisecond;
}

QList<double> type(Window &window)
{
    QList<double> times;
    QElapsedTimer clock;
    clock.start();
    for (int key = 1; key <= keys; ++key) {
        const double due = double(key) * pace;
        do {
            QCoreApplication::processEvents();
            QThread::usleep(200);
        } while (sinceMilliseconds(clock) < due);
        QTest::keyClick(window.text, Qt::Key_A);
        window.text->viewport()->repaint();
        times.append(sinceMilliseconds(clock) - due);
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
    QElapsedTimer clock;
    clock.start();
    (void)window.text->TextRTF();
    std::printf("  %-24s %8.1f\n", "writing the rich text", sinceMilliseconds(clock));
    keeper.settled();
    return 0;
}
