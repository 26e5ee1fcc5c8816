#pragma once

#include "RuntimeError.h"

#include <QWidget>

/// The control \a name of one of Qt's own dialogs, whose names may change from one version to the next.
/// Throws RuntimeError 438 when there is none of this kind.
template<class Part>
Part &dialogPart(const QWidget &dialog, const char *name)
{
    const QString wanted = QString::fromLatin1(name);
    if (auto *part = dialog.findChild<Part *>(wanted))
        return *part;
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, wanted);
}
