#include "DailyCopies.h"

#include "Connection.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFile>
#include <sys/stat.h>

namespace {

constexpr int kept = 7;

/// The names of all copies, the newest first.
QStringList names()
{
    return QDir(DailyCopies::folder())
        .entryList({QStringLiteral("data97-[0-9]*.mdb")}, QDir::Files, QDir::Name | QDir::Reversed);
}

QString pathOf(const QString &name)
{
    return DailyCopies::folder() + u'/' + name;
}

void makeFolder()
{
    Paths::makeStateFolder();
    ::mkdir(QFile::encodeName(DailyCopies::folder()).constData(), 0700);
}

/// Under another name first, so that half a copy is never taken for a whole one.
void copy(Connection &connection, const QString &name)
{
    const QString unfinished = pathOf(QStringLiteral("unfinished.mdb"));
    QFile::remove(unfinished);
    connection.copyTo(unfinished);
    QFile::rename(unfinished, pathOf(name));
}

} // namespace

QString DailyCopies::folder()
{
    return Paths::stateFolder() + QStringLiteral("/addressbook");
}

bool DailyCopies::any()
{
    return !names().isEmpty();
}

void DailyCopies::make(Connection &connection, QDate today)
{
    const QString name = QStringLiteral("data97-%1.mdb").arg(today.toString(Qt::ISODate));
    if (QFile::exists(pathOf(name)))
        return;
    makeFolder();
    try {
        copy(connection, name);
    } catch (const RuntimeError &) {
        return; // the older copies stay
    }
    const QStringList old = names().mid(kept);
    for (const QString &oldest : old)
        QFile::remove(pathOf(oldest));
}
