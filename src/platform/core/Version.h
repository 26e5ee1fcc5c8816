#pragma once

#include <QString>

/// The suite's names and its version, as the build file gives it.
namespace Version {

inline const QString product = QStringLiteral("Quill-Office Tools");
inline const QString company = QStringLiteral("Tallowick");

inline constexpr int major = QUILL_VERSION_MAJOR;
inline constexpr int minor = QUILL_VERSION_MINOR;
inline constexpr int revision = QUILL_VERSION_REVISION;

/// "2.0.1"
inline QString text()
{
    return QStringLiteral("%1.%2.%3").arg(major).arg(minor).arg(revision);
}

} // namespace Version
