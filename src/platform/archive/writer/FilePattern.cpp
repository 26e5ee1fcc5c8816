#include "FilePattern.h"

#include <fnmatch.h>

bool FilePattern::isPattern(const QByteArray &name)
{
    return name.contains('*') || name.contains('?') || name.contains('[');
}

bool FilePattern::matchesFile(const QByteArray &pattern, const QByteArray &path)
{
    const qsizetype from = pattern.contains('/') ? 0 : path.lastIndexOf('/') + 1;
    return ::fnmatch(pattern.constData(), path.constData() + from, FNM_CASEFOLD | FNM_NOESCAPE) == 0;
}

bool FilePattern::matchesEntry(const QByteArray &pattern, const QByteArray &name)
{
    return pattern == name || ::fnmatch(pattern.constData(), name.constData(), FNM_NOESCAPE) == 0;
}
