#include "ScratchSnapper.h"

#include <QFile>
#include <unistd.h>

ScratchSnapper::ScratchSnapper()
    : m_path("PATH", m_folder.path().toUtf8() + ":/usr/bin:/bin")
{
    m_folder.addFile("snapper",
                     "#!/bin/sh\n"
                     "folder=${0%/*}\n"
                     "for word; do\n"
                     "    case $word in list-configs | list | create) command=$word; break ;; esac\n"
                     "done\n"
                     "if [ $command != list-configs ]; then\n"
                     "    line=\n"
                     "    for word; do line=\"$line|$word\"; done\n"
                     "    printf '%s\\n' \"$line\" >>\"$folder/calls\"\n"
                     "fi\n"
                     ". \"$folder/$command.sh\"\n");
    QFile::setPermissions(QString::fromUtf8(m_folder.file("snapper")), QFile::ReadOwner | QFile::ExeOwner);
    answer("list-configs", "config,subvolume\nroot,/\n");
    answer("list", "number,date,description\n0,,current\n");
    answer("create", {});
}

void ScratchSnapper::answer(const QByteArray &command, const QByteArray &output, int code,
                            const QByteArray &message)
{
    m_folder.addFile(command + ".out", output);
    m_folder.addFile(command + ".err", message);
    runs(command, "cat \"$folder/" + command + ".out\"; cat \"$folder/" + command + ".err\" >&2; exit " +
                      QByteArray::number(code) + '\n');
}

void ScratchSnapper::runs(const QByteArray &command, const QByteArray &script)
{
    m_folder.addFile(command + ".sh", script);
}

void ScratchSnapper::uninstall()
{
    ::unlink(m_folder.file("snapper").constData());
    qputenv("PATH", m_folder.path().toUtf8());
}

QStringList ScratchSnapper::calls() const
{
    QFile file(QString::fromUtf8(m_folder.file("calls")));
    if (!file.open(QFile::ReadOnly))
        return {};
    QStringList lines;
    while (!file.atEnd())
        lines << QString::fromUtf8(file.readLine().chopped(1).mid(1));
    return lines;
}
