#pragma once

#include <QString>

/// Programs of other packages that the suite runs.
namespace Program {

/// The absolute path of \a name, also where it is one of the administrator's; empty where it is not
/// installed.
QString find(const QString &name);

} // namespace Program
