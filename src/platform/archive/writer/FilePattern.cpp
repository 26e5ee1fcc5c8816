#include "FilePattern.h"

#include <fnmatch.h>

bool FilePattern::isPattern(const QByteArray &name)
{
    return name.contains('*') || name.contains('?') || name.contains('[');
}

bool FilePattern::matchesFile(const QByteArray &pattern, const QByteArray &path)
{
    const auto matches = [&](const char *text) {
        return ::fnmatch(pattern.constData(), text, FNM_CASEFOLD | FNM_NOESCAPE) == 0;
    };
    return matches(path.constData()) || matches(path.constData() + path.lastIndexOf('/') + 1);
}

bool FilePattern::matchesEntry(const QByteArray &pattern, const QByteArray &name)
{
    return pattern == name || ::fnmatch(pattern.constData(), name.constData(), FNM_NOESCAPE) == 0;
}
