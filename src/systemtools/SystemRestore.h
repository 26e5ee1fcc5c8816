#pragma once

#include <QList>
#include <QString>

/// The system's restore points, in the form in which the platform's management service gives them.
namespace SystemRestore {

struct Point
{
    QString creationtime; ///< begins "yyyymmddhhmmss", local time
    int SequenceNumber;
    QString Description;
};

/// In the service's order. Both throw as Snapper does.
QList<Point> instances();
void CreateRestorePoint(const QString &description);

} // namespace SystemRestore
