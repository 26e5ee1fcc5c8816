#include "FtpCommand.h"

namespace {

QString quoted(const QString &name)
{
    return u'"' + name + u'"';
}

QString command(const QString &verb, const QString &name)
{
    return verb + u' ' + quoted(name);
}

QString command(const QString &verb, const QString &first, const QString &second)
{
    return command(verb, first) + u' ' + quoted(second);
}

/// Intended: a "\" always, whatever the folder ends in; the session reads it.
QString localFile(const QString &folder, const QString &name)
{
    return folder + u'\\' + name;
}

} // namespace

QString FtpCommand::openFolder(const QString &name)
{
    return command(QStringLiteral("CD"), name);
}

QString FtpCommand::makeFolder(const QString &name)
{
    return command(QStringLiteral("MKDIR"), name);
}

QString FtpCommand::removeFolder(const QString &name)
{
    return command(QStringLiteral("RMDIR"), name);
}

QString FtpCommand::removeFile(const QString &name)
{
    return command(QStringLiteral("DELETE"), name);
}

QString FtpCommand::rename(const QString &name, const QString &newName)
{
    return command(QStringLiteral("RENAME"), name, newName);
}

QString FtpCommand::size(const QString &name)
{
    return command(QStringLiteral("SIZE"), name);
}

QString FtpCommand::receive(const QString &name, const QString &folder)
{
    return command(QStringLiteral("GET"), name, localFile(folder, name));
}

QString FtpCommand::send(const QString &name, const QString &folder)
{
    return command(QStringLiteral("PUT"), localFile(folder, name), name);
}
