#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <optional>

/// Dates as text. Month names are English in every locale, so that what one user writes another can read.
namespace DateText {

/// The date that the whole of \a text names, as "5-Sep-1999" in any case of letters or as "1999-09-05"; outer
/// blanks are skipped. Nothing for any other text and for a day that does not exist.
std::optional<QDate> parse(const QString &text);

/// The same for what a column holds, where a time of day may follow the date; the time is left out.
std::optional<QDate> parseStored(const QString &text);
std::optional<QDate> parseStored(QByteArrayView utf8);

/// "05-Sep-1999"; for the years 1 to 9999.
QString show(QDate date);

/// "1999-09-05", as columns hold it.
QString store(QDate date);

} // namespace DateText
