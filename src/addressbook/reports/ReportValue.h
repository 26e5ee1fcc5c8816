#pragma once

class QString;

/// A contact's value as a part of a report's rich text.
namespace ReportValue {

/// \a value as it is, since a brace or a backslash in it is markup. One with markup is put into a group of
/// its own, with the braces that it lacks, so that the markup ends where the value does. The backslash of
/// what no group would end is doubled, and so shown: raw bytes, a character without its two digits, and the
/// last character of the value.
QString markup(const QString &value);

} // namespace ReportValue
