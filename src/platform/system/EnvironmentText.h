#pragma once

#include <QString>

/// Texts that name variables of the environment between per cent signs.
namespace EnvironmentText {

/// \a text with each "%NAME%" replaced by that variable; one that is not set stays as it is.
QString expand(const QString &text);

} // namespace EnvironmentText
