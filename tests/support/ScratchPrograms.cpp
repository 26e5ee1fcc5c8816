#include "ScratchPrograms.h"

#include <QFile>

ScratchPrograms::ScratchPrograms(Others others)
    : m_path("PATH", m_folder.path().toUtf8() + (others == Others::Found ? ":/usr/bin:/bin" : ""))
{}

void ScratchPrograms::add(const QByteArray &name, const QByteArray &script) const
{
    m_folder.addFile(name, "#!/bin/sh\nPATH=/usr/bin:/bin\nfolder=${0%/*}\n" + script);
    QFile::setPermissions(QString::fromUtf8(file(name)), QFile::ReadOwner | QFile::ExeOwner);
}

void ScratchPrograms::addRecorder(const QByteArray &name) const
{
    add(name, "printf '%s\\n' \"$@\" >\"$0.new\" && mv \"$0.new\" \"$0.calls\"\n");
}

QByteArray ScratchPrograms::content(const QByteArray &name) const
{
    QFile content(QString::fromUtf8(file(name)));
    return content.open(QFile::ReadOnly) ? content.readAll() : QByteArray();
}
