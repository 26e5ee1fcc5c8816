#pragma once

#include <QStringList>

/// The names that combo boxes offer, in the order of the user's language, ".." first. Read anew by each call,
/// from AddressConnection. Throw RuntimeError with the numbers of DataError.
namespace ReferenceNames {

QStringList cities();
QStringList states();
QStringList groups();

} // namespace ReferenceNames
