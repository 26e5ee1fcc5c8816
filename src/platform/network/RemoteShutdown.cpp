#include "RemoteShutdown.h"

#include "FileNames.h"
#include "HostLabel.h"
#include "Paths.h"
#include "Program.h"
#include "RuntimeError.h"

#include <QHostAddress>
#include <QProcess>
#include <QStandardPaths>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString delay = QStringLiteral("30"); // seconds
const QString limit = QStringLiteral("60"); // seconds

QString programNamed(const QString &name)
{
    const QString path = Program::find(name);
    if (path.isEmpty())
        throw RuntimeError(ErrorNumber::FileNotFound, {}, name);
    return path;
}

/// Who asks. A password is never among the arguments, which all users can see.
QStringList login()
{
    const QString name = RemoteShutdown::loginFile();
    struct stat file = {};
    if (::stat(FileNames::toBytes(name).constData(), &file) != 0)
        return {QStringLiteral("--no-pass")};
    if (file.st_uid != ::geteuid() || (file.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        throw RuntimeError(
            ErrorNumber::PermissionDenied,
            QStringLiteral("Other users may read \"%1\", which has a password: take their rights "
                           "away.")
                .arg(name));
    return {QStringLiteral("--authentication-file"), name};
}

QStringList target(const Computer &computer)
{
    if (HostLabel::of(computer.name) != computer.name || computer.name.isEmpty())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    QStringList arguments = {QStringLiteral("--server"), computer.name};
    if (!QHostAddress(computer.address).isNull())
        arguments << QStringLiteral("--ipaddress") << computer.address;
    return arguments;
}

QStringList command(RemoteShutdown::Order order, const QString &comment)
{
    if (order == RemoteShutdown::Order::Abort)
        return {QStringLiteral("rpc"), QStringLiteral("abortshutdown")};
    QStringList arguments = {QStringLiteral("rpc"),
                             QStringLiteral("shutdown"),
                             QStringLiteral("--force"),
                             QStringLiteral("--timeout"),
                             delay,
                             QStringLiteral("--comment"),
                             comment};
    if (order == RemoteShutdown::Order::Restart)
        arguments << QStringLiteral("--reboot");
    return arguments;
}

} // namespace

QString RemoteShutdown::loginFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           Paths::applicationTitle + QStringLiteral("/network-login");
}

void RemoteShutdown::send(Order order, const Computer &computer, const QString &comment)
{
    QStringList arguments = {QStringLiteral("--kill-after=5"), limit, programNamed(QStringLiteral("net"))};
    arguments += command(order, comment);
    arguments += target(computer);
    arguments += login();
    arguments << QStringLiteral("--use-kerberos=desired") << QStringLiteral("--client-protection=sign")
              << QStringLiteral("--option=clientminprotocol=SMB2");
    QProcess process;
    process.setProgram(programNamed(QStringLiteral("timeout")));
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, process.errorString());
}
