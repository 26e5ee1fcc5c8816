#include "Snapper.h"

#include "CsvText.h"
#include "EventGate.h"
#include "PlainText.h"
#include "Program.h"
#include "RuntimeError.h"
#include "ShownText.h"

#include <QProcess>
#include <QTimer>

namespace {

using namespace std::chrono_literals;

constexpr auto snapperPatience = 60s;
constexpr qsizetype mostSnapperOutput = 16 * 1024 * 1024; // bytes
constexpr qsizetype longestReason = 300;                  // characters
constexpr int notInstalled = 429;
const QString defaultConfiguration = QStringLiteral("root");

[[noreturn]] void fail(const QString &reason)
{
    throw RuntimeError(Snapper::Failed, ShownText::line(reason.trimmed().left(longestReason)));
}

QString program()
{
    const QString path = Program::find(QStringLiteral("snapper"));
    if (path.isEmpty())
        throw RuntimeError(
            notInstalled,
            QStringLiteral("Restore points need the program \"snapper\", which is not installed."));
    return path;
}

/// Runs events until \a process has ended, and ends it where it takes too long or says too much.
QByteArray outputOf(QProcess &process)
{
    QByteArray output;
    QTimer deadline;
    on(&deadline, &QTimer::timeout, &deadline, [&] { process.kill(); });
    deadline.start(snapperPatience);
    while (process.state() != QProcess::NotRunning) {
        waitForEvents();
        output += process.readAllStandardOutput();
        if (output.size() > mostSnapperOutput)
            process.kill();
    }
    return output + process.readAllStandardOutput();
}

/// What snapper prints.
QString answerTo(const QStringList &arguments)
{
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program(), arguments);
    const QByteArray output = outputOf(process);
    if (process.error() == QProcess::FailedToStart)
        fail(process.errorString());
    if (process.exitStatus() != QProcess::NormalExit)
        fail(QStringLiteral("snapper did not answer."));
    if (process.exitCode() != 0)
        fail(PlainText::decode(process.readAllStandardError()));
    return PlainText::decode(output);
}

/// Its table, without the captions.
QList<QStringList> rowsOf(const QStringList &arguments)
{
    return CsvText::read(
               answerTo(QStringList{QStringLiteral("--machine-readable"), QStringLiteral("csv")} + arguments))
        .mid(1);
}

/// The only one, or the usual one.
QString configuration()
{
    const QList<QStringList> rows = rowsOf({QStringLiteral("list-configs")});
    return rows.size() == 1 ? rows.constFirst().constFirst() : defaultConfiguration;
}

} // namespace

QList<Snapper::Snapshot> Snapper::list()
{
    QList<Snapshot> snapshots;
    for (const QStringList &row :
         rowsOf({QStringLiteral("--config"), configuration(), QStringLiteral("list"),
                 QStringLiteral("--columns"), QStringLiteral("number,date,description")})) {
        const int number = row.value(0).toInt();
        if (number > 0) // 0 is the present state
            snapshots.append({number, row.value(2),
                              QDateTime::fromString(row.value(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"))});
    }
    return snapshots;
}

void Snapper::create(const QString &description)
{
    answerTo({QStringLiteral("--config"), configuration(), QStringLiteral("create"), QStringLiteral("--type"),
              QStringLiteral("single"), QStringLiteral("--description"), description});
}
