#include "EntryName.h"

#include "LittleEndian.h"

#include <QString>
#include <libdeflate.h>

namespace {

constexpr qsizetype mostShown = 255;

// clang-format off
constexpr char16_t codePage437[] =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00a0";
// clang-format on
static_assert(std::size(codePage437) == 128 + 1);

QByteArray fromCodePage437(const QByteArray &stored)
{
    QString text;
    text.reserve(stored.size());
    for (const char byte : stored)
        text += uchar(byte) < 128 ? QChar(uchar(byte)) : QChar(codePage437[uchar(byte) - 128]);
    return text.toUtf8();
}

/// The field holds a version, the checksum of the stored name, and the name; it is out of date where the
/// checksum differs.
QByteArray unicodePath(const QByteArray &stored, const ExtraFields &fields)
{
    constexpr qsizetype headSize = 5;
    const QByteArrayView path = fields.find(ExtraFields::UnicodePath);
    if (path.size() <= headSize || path[0] != 1)
        return {};
    const quint32 crc = libdeflate_crc32(0, stored.constData(), size_t(stored.size()));
    const QByteArrayView name = path.sliced(headSize);
    if (LittleEndian::number32(path, 1) != crc || !name.isValidUtf8())
        return {};
    return name.toByteArray();
}

bool isInsideCharacter(char byte)
{
    return (uchar(byte) & 0xc0) == 0x80;
}

/// At most \a most bytes of \a name.
QByteArray cut(const QByteArray &name, qsizetype most)
{
    if (name.size() <= most)
        return name;
    qsizetype size = most;
    while (size > most - 4 && isInsideCharacter(name[size]))
        --size;
    return name.left(size);
}

} // namespace

QByteArray EntryName::decode(const QByteArray &stored, const ExtraFields &fields, bool isUnixMade)
{
    if (const QByteArray path = unicodePath(stored, fields); !path.isEmpty())
        return path;
    if (isUnixMade || QByteArrayView(stored).isValidUtf8())
        return stored;
    return fromCodePage437(stored);
}

/// A file whose name is cut behind a slash is no folder.
QByteArray EntryName::shown(const QByteArray &name)
{
    QByteArray shown = cut(name, mostShown);
    while (shown.size() < name.size() && (shown.endsWith('/') || shown.endsWith('\\')))
        shown.chop(1);
    return shown;
}

QByteArray EntryName::shownFolder(const QByteArray &name)
{
    const bool isMarked = name.endsWith('/') || name.endsWith('\\');
    const QByteArray plain = isMarked ? name.chopped(1) : name;
    return cut(plain, mostShown - 1) + '/';
}
