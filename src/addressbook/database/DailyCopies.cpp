#include "DailyCopies.h"

#include "Connection.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <sys/stat.h>

namespace {

constexpr int kept = 7;

/// The names of all copies, the newest first.
QStringList names()
{
    const QString ofADay = QStringLiteral("data97-[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9].mdb");
    return QDir(DailyCopies::folder())
        .entryList({ofADay}, QDir::Files | QDir::CaseSensitive, QDir::Name | QDir::Reversed);
}

/// All but seven. Those that a wrong clock has dated behind \a newest go first.
QStringList surplus(const QString &newest)
{
    QStringList copies = names();
    std::stable_partition(copies.begin(), copies.end(),
                          [&newest](const QString &name) { return name <= newest; });
    return copies.mid(kept);
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
    const QStringList old = surplus(name);
    for (const QString &oldest : old)
        QFile::remove(pathOf(oldest));
}
