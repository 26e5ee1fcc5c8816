#pragma once

#include <QStringList>

/// The documents that an earlier run of the suite left behind in recovery copies.
namespace RecoveredDocuments {

/// Opens each in a window of its own and returns their captions. A copy that cannot be read is left as it is.
QStringList open();

} // namespace RecoveredDocuments
