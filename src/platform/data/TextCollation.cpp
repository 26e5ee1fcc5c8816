#include "TextCollation.h"

#include "DataError.h"

#include <QLocale>
#include <sqlite3.h>
#include <string_view>
#include <unicode/ucol.h>

namespace {

/// The rows of a table whose name this is are placeholders, which lists have first.
constexpr std::string_view placeholder = "..";

int compare(void *collator, int firstSize, const void *first, int secondSize, const void *second)
{
    const std::string_view a(static_cast<const char *>(first), size_t(firstSize));
    const std::string_view b(static_cast<const char *>(second), size_t(secondSize));
    if (a == b)
        return 0;
    if (a == placeholder)
        return -1;
    if (b == placeholder)
        return 1;
    UErrorCode status = U_ZERO_ERROR;
    return ::ucol_strcollUTF8(static_cast<const UCollator *>(collator), a.data(), firstSize, b.data(),
                              secondSize, &status);
}

/// Where the user has chosen no language, the rules that most languages have in common.
QByteArray language()
{
    const QLocale chosen = QLocale::system().collation();
    return chosen.language() == QLocale::C ? QByteArray() : chosen.name().toLatin1();
}

void close(void *collator)
{
    ::ucol_close(static_cast<UCollator *>(collator));
}

} // namespace

void TextCollation::install(sqlite3 *database)
{
    UErrorCode status = U_ZERO_ERROR;
    UCollator *collator = ::ucol_open(language().constData(), &status);
    if (U_FAILURE(status))
        throw RuntimeError(DataError::Engine, QString::fromLatin1(::u_errorName(status)));
    ::ucol_setStrength(collator, UCOL_SECONDARY);
    if (::sqlite3_create_collation_v2(database, "LOCALE_TEXT", SQLITE_UTF8, collator, compare, close) !=
        SQLITE_OK) {
        close(collator); // which the engine does in every other case
        throw DataError::fromEngine(database, {});
    }
}
