#include "LineDevCaps.h"

#include <algorithm>

QString LineDevCaps::text(quint32 size, quint32 offset) const
{
    if (size < 1 || offset < fixedSize || quint64(offset) + size > fixedSize + variableSize)
        return {};
    return QString::fromUtf16(variable.data() + (offset - fixedSize), qsizetype(size));
}

void LineDevCaps::append(const QString &text, quint32 &size, quint32 &offset)
{
    const quint32 length = quint32(text.size()) + 1;
    dwNeededSize = std::max(dwNeededSize, fixedSize) + length;
    dwUsedSize = std::max(dwUsedSize, fixedSize);
    if (dwUsedSize + length > std::min(dwTotalSize, fixedSize + variableSize))
        return;
    offset = dwUsedSize;
    size = length;
    const auto place = variable.begin() + (offset - fixedSize);
    *std::copy_n(text.utf16(), text.size(), place) = u'\0';
    dwUsedSize += length;
}
