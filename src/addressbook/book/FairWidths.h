#pragma once

#include <QList>

/// The widths of controls beside each other.
namespace FairWidths {

/// What each has of \a room where they would like to have \a wanted. Where that is too much, the widest give
/// way first, so that as many as can be stay as wide as they want.
QList<int> of(const QList<int> &wanted, int room);

} // namespace FairWidths
