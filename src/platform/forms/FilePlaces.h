#pragma once

#include "Volume.h"

#include <QList>
#include <QUrl>

/// The folders that a file dialog offers beside its list.
namespace FilePlaces {

/// \a offered, then the home folder, documents and downloads where they exist, and the drives among
/// \a volumes, each of them once.
QList<QUrl> complete(const QList<QUrl> &offered, const QList<Volume> &volumes);

} // namespace FilePlaces
