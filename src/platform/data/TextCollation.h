#pragma once

struct sqlite3;

/// The order and equality of texts, by the rules of the user's language: case does not count, accents do,
/// and ".." is before every other text.
///
/// A column has it by "collate LOCALE_TEXT". No index may be on such a column: the order of the texts in it
/// would be wrong as soon as the rules change.
namespace TextCollation {

/// Makes it known to \a database. Throws RuntimeError.
void install(sqlite3 *database);

} // namespace TextCollation
