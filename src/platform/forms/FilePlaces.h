#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

/// The folders that a file dialog offers beside its list.
namespace FilePlaces {

/// \a offered without those that no longer exist, then the home folder, documents, downloads and the drives
/// among \a mountPoints, each of them once and only where it exists.
QList<QUrl> complete(const QList<QUrl> &offered, const QStringList &mountPoints);

/// Where file systems are mounted now.
QStringList mountPoints();

} // namespace FilePlaces
