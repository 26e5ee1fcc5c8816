#pragma once

struct sqlite3;

/// The functions day(date) and month(date) of statements: whole numbers, NULL for NULL and for what is no
/// date.
namespace DateFunctions {

/// Makes them known to \a database. Throws RuntimeError.
void install(sqlite3 *database);

} // namespace DateFunctions
