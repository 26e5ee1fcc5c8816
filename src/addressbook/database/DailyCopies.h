#pragma once

#include <QDate>
#include <QString>

class Connection;

/// Copies of the database in the user's state folder, one of each day on which the address book was opened;
/// seven are kept. Where none can be made there is none, and no error is shown.
namespace DailyCopies {

/// Only its user may look into it. It need not exist.
QString folder();

/// True when there is a copy.
bool any();

/// Copies the file of \a connection unless \a today has a copy, and removes those beyond seven: first the
/// ones dated after \a today, then the oldest.
void make(Connection &connection, QDate today);

} // namespace DailyCopies
