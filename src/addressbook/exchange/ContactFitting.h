#pragma once

#include "Contact.h"

/// Makes contacts of files fit into the database: texts on one line where a field has one, not longer than
/// their fields, and without what would hurt later.
namespace ContactFitting {

/// What of \a contact had to be cut, as words for the user; empty when nothing.
///
/// In the names of cities, states and groups a single quote becomes an apostrophe (U+2019): windows join
/// these names into statements without quoting.
QStringList fit(Contact &contact);

} // namespace ContactFitting
