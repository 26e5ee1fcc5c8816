#include "DateFunctions.h"

#include "DataError.h"
#include "DateText.h"

#include <sqlite3.h>

namespace {

template<int (QDate::*part)() const>
void answer(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const auto *text = reinterpret_cast<const char *>(::sqlite3_value_text(arguments[0]));
    const auto date = DateText::parseStored(QString::fromUtf8(text, ::sqlite3_value_bytes(arguments[0])));
    if (date)
        ::sqlite3_result_int(context, ((*date).*part)());
}

using Function = void (*)(sqlite3_context *, int, sqlite3_value **);

void add(sqlite3 *database, const char *name, Function function)
{
    constexpr int traits = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    if (::sqlite3_create_function(database, name, 1, traits, nullptr, function, nullptr, nullptr) !=
        SQLITE_OK)
        throw DataError::fromEngine(database, {});
}

} // namespace

void DateFunctions::install(sqlite3 *database)
{
    add(database, "day", answer<&QDate::day>);
    add(database, "month", answer<&QDate::month>);
}
