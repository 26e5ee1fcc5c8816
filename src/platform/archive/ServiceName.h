#pragma once

#include "EntryName.h"

/// The name at work, as the service functions get it.
namespace ServiceName {

/// Callers do not listen to texts of one character, and they have to be called for "a" as well.
inline QByteArray of(const QByteArray &name)
{
    return name.size() > 1 ? EntryName::shown(name) : "./" + name;
}

} // namespace ServiceName
