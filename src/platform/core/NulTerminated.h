#pragma once

#include <QString>

/// The text up to its first NUL, which ends it for the callers of the registry, of the dialogs and of the
/// lines.
inline QString upToNul(const QString &text)
{
    return text.left(text.indexOf(QChar(u'\0')));
}
