#include "ToolLauncher.h"

#include "DesktopEntry.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QProcess>
#include <QStandardPaths>
#include <iterator>

namespace {

struct Column
{
    const char *desktop; ///< as XDG_CURRENT_DESKTOP has it
    const char *ToolCandidates::*candidates;
};

constexpr Column columns[] = {
    {"GNOME", &ToolCandidates::gnome},
    {"KDE", &ToolCandidates::kde},
    {"XFCE", &ToolCandidates::xfce},
};

/// A terminal, and the option that precedes the words of a command.
struct Terminal
{
    const char *program;
    const char *option; ///< may be nullptr
};

constexpr Terminal terminals[] = {
    {"xdg-terminal-exec", nullptr}, {"x-terminal-emulator", "-e"}, {"konsole", "-e"},
    {"gnome-terminal", "--"},       {"xfce4-terminal", "-x"},      {"xterm", "-e"},
};

bool isProgram(const QString &program)
{
    return !program.isEmpty() && !QStandardPaths::findExecutable(program).isEmpty();
}

/// \a command in the terminal that is there; empty when there is none.
QStringList inTerminal(const QStringList &command)
{
    for (const Terminal &terminal : terminals) {
        QStringList whole(QString::fromLatin1(terminal.program));
        if (!isProgram(whole.first()))
            continue;
        if (terminal.option)
            whole << QString::fromLatin1(terminal.option);
        return whole + command;
    }
    return {};
}

/// \a command, then a wait for the Enter key.
QStringList staying(const QStringList &command)
{
    return QStringList{QStringLiteral("sh"), QStringLiteral("-c"), QStringLiteral("\"$@\"; read -r line"),
                       QStringLiteral("sh")} +
           command;
}

QStringList commandOfEntry(const QString &id)
{
    const QString file =
        QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id + QStringLiteral(".desktop"));
    if (file.isEmpty())
        return {};
    const DesktopEntry entry = DesktopEntry::parse(Files::read(file));
    const QString tried = entry.text(QStringLiteral("TryExec"));
    const QStringList command = entry.command();
    const bool isGone = entry.isTrue(QStringLiteral("Hidden")) || (!tried.isEmpty() && !isProgram(tried)) ||
                        !isProgram(command.value(0));
    if (isGone)
        return {};
    return entry.isTrue(QStringLiteral("Terminal")) ? inTerminal(command) : command;
}

/// What starts \a candidate; empty when it is not there.
QStringList commandOf(const QString &candidate)
{
    const QString what = candidate.mid(2);
    if (candidate.startsWith(QLatin1String("d:"))) {
        try {
            return commandOfEntry(what);
        } catch (const RuntimeError &) {
            return {}; // a file that may not be read
        }
    }
    const QStringList command = what.split(u' ');
    if (!isProgram(command.first()))
        return {};
    if (candidate.startsWith(QLatin1String("t:")))
        return inTerminal(command);
    return candidate.startsWith(QLatin1String("w:")) ? inTerminal(staying(command)) : command;
}

std::optional<qint64> startDetached(const QStringList &command)
{
    QProcess process;
    process.setProgram(command.first());
    process.setArguments(command.mid(1));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 id = 0;
    return process.startDetached(&id) ? std::optional(id) : std::nullopt;
}

/// The columns in the order in which they are searched.
QList<const char * ToolCandidates::*> searchOrder()
{
    QList<const char * ToolCandidates::*> order;
    for (const QString &desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':')) {
        for (const Column &column : columns) {
            if (desktop.compare(QLatin1String(column.desktop), Qt::CaseInsensitive) == 0)
                order << column.candidates;
        }
    }
    order << &ToolCandidates::fallback;
    for (const Column &column : columns)
        order << column.candidates;
    return order;
}

/// Hands the commands of the candidates that are there to \a take, in the order in which they are wanted,
/// until it returns true. Returns whether it did.
template<class Take>
bool findCommand(const ToolCandidates &candidates, Take take)
{
    for (const char *ToolCandidates::*column : searchOrder()) {
        for (const QString &candidate :
             QString::fromLatin1(candidates.*column).split(QStringLiteral(" | "), Qt::SkipEmptyParts)) {
            const QStringList command = commandOf(candidate);
            if (!command.isEmpty() && take(command))
                return true;
        }
    }
    return false;
}

} // namespace

bool ToolLauncher::isThere(const ToolCandidates &candidates)
{
    return findCommand(candidates, [](const QStringList &) { return true; });
}

std::optional<qint64> ToolLauncher::start(const ToolCandidates &candidates)
{
    std::optional<qint64> id;
    QString broken;
    const bool isStarted = findCommand(candidates, [&](const QStringList &command) {
        id = startDetached(command);
        if (!id)
            broken = command.first();
        return id.has_value();
    });
    if (!isStarted && !broken.isEmpty())
        throw RuntimeError(ErrorNumber::FileNotFound, {}, broken);
    return id;
}
