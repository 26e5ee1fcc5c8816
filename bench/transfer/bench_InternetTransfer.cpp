#include "EventGate.h"
#include "InternetTransfer.h"
#include "ListBox.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <cstdio>
#include <memory>

// Runs one command of a session, as bench_transfer.py asks for it:
//
//     bench_InternetTransfer HOST:PORT USER PASSWORD COMMAND
//
// With DIR there is a window, whose list the rows come into. Prints the milliseconds from the command to its
// end, which for DIR is when the rows are painted, the longest time in which no event was handled, and the
// peaks of the resident and of the anonymous memory in KiB.

namespace {

constexpr int tickMs = 2;
constexpr int chunk = 4096;

qint64 statusOf(const QByteArray &field)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(field))
            return line.mid(field.size()).simplified().split(' ').constFirst().toLongLong();
    }
    return 0;
}

class Bench
{
public:
    explicit Bench(const QStringList &arguments, ListBox *list);
    int run();

private:
    void tick();
    void handleState(int state);
    void fillList();

    ListBox *m_list; ///< null without a window
    QString m_command;
    InternetTransfer m_session;
    QTimer m_ticks;
    QElapsedTimer m_time;
    qint64 m_lastTick = 0;
    qint64 m_longestPause = 0;
    qint64 m_anonymous = 0;
    int m_result = 0;
};

Bench::Bench(const QStringList &arguments, ListBox *list)
    : m_list(list)
    , m_command(arguments[4])
{
    m_session.setRemoteHost(arguments[1]);
    m_session.setUserName(arguments[2]);
    m_session.setPassword(arguments[3]);
    on(&m_session, &InternetTransfer::StateChanged, &m_session, [this](int state) { handleState(state); });
    on(&m_ticks, &QTimer::timeout, &m_ticks, [this] { tick(); });
}

int Bench::run()
{
    m_time.start();
    m_session.Execute({}, m_command);
    m_ticks.start(tickMs);
    QCoreApplication::exec();
    const qint64 elapsed = m_time.elapsed();
    std::printf("%lld %lld %lld %lld\n", elapsed, m_longestPause, statusOf("VmHWM:"), m_anonymous);
    return m_result;
}

void Bench::tick()
{
    const qint64 now = m_time.elapsed();
    m_longestPause = qMax(m_longestPause, now - m_lastTick);
    m_lastTick = now;
    if (m_anonymous == 0 || now / 100 != (now - tickMs) / 100)
        m_anonymous = qMax(m_anonymous, statusOf("RssAnon:"));
}

void Bench::handleState(int state)
{
    if (state == InternetTransfer::Error) {
        std::fprintf(stderr, "%s: %d %s\n", qPrintable(m_command), m_session.ResponseCode(),
                     qPrintable(m_session.ResponseInfo()));
        m_result = 1;
        QCoreApplication::exit();
    } else if (state == InternetTransfer::ResponseCompleted) {
        if (m_list)
            fillList();
        tick();
        m_anonymous = qMax(m_anonymous, statusOf("RssAnon:"));
        QCoreApplication::exit();
    }
}

void Bench::fillList()
{
    QString response;
    for (QString part = m_session.GetChunk(chunk); !part.isEmpty(); part = m_session.GetChunk(chunk)) {
        processPendingEvents();
        response += part;
    }
    m_list->addItems(response.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts));
    m_list->repaint();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5) {
        std::fputs("bench_InternetTransfer HOST:PORT USER PASSWORD COMMAND\n", stderr);
        return 2;
    }
    if (qstrcmp(argv[4], "DIR") != 0) {
        const QCoreApplication application(argc, argv);
        return Bench(QCoreApplication::arguments(), nullptr).run();
    }
    const QApplication application(argc, argv);
    ListBox list;
    list.show();
    processPendingEvents();
    return Bench(QCoreApplication::arguments(), &list).run();
}
