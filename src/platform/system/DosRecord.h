#pragma once

#include <QByteArray>
#include <optional>

/// The extended attribute in which file servers keep the attributes that other desktops know: a version, the
/// attributes and the time of creation.
namespace DosRecord {

inline constexpr const char *name = "user.DOSATTRIB";

/// The attributes in the bytes of a record of version 3 to 5, or in the text that older servers wrote.
std::optional<quint32> attributesIn(const QByteArray &record);

/// \a old with \a attributes in it; where it is no record that is understood, a new one for a file that was
/// created at \a created, in tenths of microseconds since 1601.
QByteArray with(quint32 attributes, const QByteArray &old, quint64 created);

} // namespace DosRecord
