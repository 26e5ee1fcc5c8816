#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

/// The file system's snapshots, which the program snapper makes and lists. Events run while it works.
///
/// The functions throw RuntimeError: 429 where snapper is not installed, and where it refuses, hangs for more
/// than a minute, or says more than sixteen megabytes, `Failed` with what it says.
namespace Snapper {

inline constexpr int Failed = -2147217407;

struct Snapshot
{
    int number;
    QString description;
    QDateTime time; ///< local
};

/// In snapper's order.
QList<Snapshot> list();

/// \a description is any text.
void create(const QString &description);

} // namespace Snapper
