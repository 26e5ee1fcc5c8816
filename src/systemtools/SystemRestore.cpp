#include "SystemRestore.h"

#include "Snapper.h"

QList<SystemRestore::Point> SystemRestore::instances()
{
    QList<Point> points;
    for (const Snapper::Snapshot &snapshot : Snapper::list())
        points.append({snapshot.time.toString(QStringLiteral("yyyyMMddHHmmss")), snapshot.number,
                       snapshot.description});
    return points;
}

void SystemRestore::CreateRestorePoint(const QString &description)
{
    Snapper::create(description);
}
