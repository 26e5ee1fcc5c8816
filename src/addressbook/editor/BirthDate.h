#pragma once

#include <QDate>
#include <QString>
#include <optional>

/// The birth date as the text of its box. The texts that are dates are those of DateText.
namespace BirthDate {

/// What the box shows once the focus has left it: the date as "05-Sep-1999", or nothing where \a text is no
/// date.
QString tidied(const QString &text);

/// Nothing for an empty box.
QString shown(const std::optional<QDate> &date);

} // namespace BirthDate
