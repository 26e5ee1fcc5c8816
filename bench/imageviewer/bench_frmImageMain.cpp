#include "EventGate.h"
#include "FileDrop.h"
#include "Forms.h"
#include "Look.h"
#include "Milliseconds.h"
#include "PictureBox.h"
#include "frmImageMain.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <algorithm>
#include <cstdio>

// The image window with large pictures, as bench_imageviewer.py asks for it:
//
//     bench_frmImageMain PICTURE
//
// Prints the milliseconds from the picture's name until it is painted; the memory above that of the empty
// window, in KiB, once all copies are there, and at its peak; and the longest paint in milliseconds while the
// picture is panned, and while it is zoomed, over all rows of the list of percentages.

namespace {

long memory(const char *what)
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(what))
            return line.simplified().split(' ').at(1).toLong();
    }
    return 0;
}

/// Runs events for so long, copies of the picture being made among them.
void settle(qint64 time)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < time)
        processPendingEvents();
}

class Bench
{
public:
    Bench()
        : m_window(Forms::refer<frmImageMain>())
        , m_picture(m_window.member<PictureBox>(QStringLiteral("Image1")))
        , m_percentages(m_window.member<QComboBox>(QStringLiteral("Combo1")))
    {
        m_window.showModeless();
        m_window.showMaximized();
        settle(500);
    }

    double open(const QString &path)
    {
        return milliseconds([&] {
            Q_EMIT m_window.findChild<FileDrop *>()->Dropped({path});
            moveIntoView();
            paint();
        });
    }
    double pan()
    {
        double longest = 0;
        for (int row = 0; row < m_percentages.count(); ++row) {
            zoomTo(row);
            paint();
            for (int step = 0; step < 20; ++step) {
                longest = std::max(longest, milliseconds([&] {
                                       m_picture.setLeft(m_picture.Left() - 97);
                                       m_picture.setTop(m_picture.Top() - 61);
                                       paint();
                                   }));
            }
        }
        return longest;
    }
    double zoom()
    {
        double longest = 0;
        for (int row = 0; row < m_percentages.count(); ++row)
            longest = std::max(longest, milliseconds([&] {
                                   zoomTo(row);
                                   paint();
                               }));
        return longest;
    }

private:
    void zoomTo(int row)
    {
        m_percentages.setCurrentIndex(row);
        Q_EMIT m_percentages.activated(row);
        moveIntoView();
    }
    /// A picture much larger than the screen is placed beside the window.
    void moveIntoView()
    {
        m_picture.setLeft(0);
        m_picture.setTop(0);
    }
    void paint() { m_window.repaint(); }

    frmImageMain &m_window;
    PictureBox &m_picture;
    QComboBox &m_percentages;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Look::apply();
    Forms::registerWindow(QStringLiteral("frmImageMain"), Forms::Instances::One,
                          [] { return new frmImageMain; });
    Bench bench;
    const long before = memory("VmRSS:");
    const double opened = bench.open(QString::fromLocal8Bit(argv[1]));
    const long peak = memory("VmHWM:") - before;
    settle(3000);
    const long after = memory("VmRSS:") - before;
    const double panned = bench.pan();
    const double zoomed = bench.zoom();
    std::printf("%.1f %ld %ld %.1f %.1f\n", opened, after, peak, panned, zoomed);
}
