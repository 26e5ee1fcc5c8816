#include "DateFunctions.h"

#include "DataError.h"
#include "DateText.h"

#include <new>
#include <sqlite3.h>

namespace {

/// The engine calls it, and no exception may pass through the engine.
template<int (QDate::*part)() const>
void answer(sqlite3_context *context, int, sqlite3_value **arguments) noexcept
{
    try {
        const auto *text = reinterpret_cast<const char *>(::sqlite3_value_text(arguments[0]));
        const auto date = DateText::parseStored(QByteArrayView(text, ::sqlite3_value_bytes(arguments[0])));
        if (date)
            ::sqlite3_result_int(context, ((*date).*part)());
    } catch (const std::bad_alloc &) {
        ::sqlite3_result_error_nomem(context);
    }
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
