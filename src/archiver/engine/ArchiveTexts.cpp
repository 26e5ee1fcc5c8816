#include "ArchiveTexts.h"

#include "FileNames.h"

#include <algorithm>

bool ArchiveTexts::isHeard(QByteArrayView text)
{
    constexpr qsizetype tooLong = 1024;
    return text.size() > 1 && text.size() < tooLong;
}

QByteArray ArchiveTexts::untilNul(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    return (end < 0 ? bytes : bytes.first(end)).toByteArray();
}

QString ArchiveTexts::text(QByteArrayView bytes)
{
    return FileNames::fromBytes(bytes);
}

QString ArchiveTexts::withBackslashes(const QString &text)
{
    return QString(text).replace(u'/', u'\\');
}

QString ArchiveTexts::withBackslashesUnlessFirst(const QString &text)
{
    return text.startsWith(u'/') ? text : withBackslashes(text);
}

QByteArray ArchiveTexts::cut(const QByteArray &bytes, qsizetype most)
{
    const auto isInsideCharacter = [&](qsizetype at) { return (uchar(bytes[at]) & 0xc0) == 0x80; };
    if (bytes.size() <= most)
        return bytes;
    while (most > 0 && isInsideCharacter(most))
        --most;
    return bytes.left(most);
}

void ArchiveTexts::fill(std::span<char> buffer, QByteArrayView bytes)
{
    const qsizetype count = qMin(bytes.size(), qsizetype(buffer.size()));
    std::copy_n(bytes.begin(), count, buffer.begin());
    std::fill(buffer.begin() + count, buffer.end(), '\0');
}
