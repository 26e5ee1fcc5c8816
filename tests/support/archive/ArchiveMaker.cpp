#include "ArchiveMaker.h"

#include <libdeflate.h>

namespace {

constexpr quint32 in64 = 0xffffffff;

struct Written
{
    const MadeEntry &entry;
    quint16 method;
    QByteArray packed;
    quint32 crc;
    quint64 size;
    quint64 packedSize;
    qint64 offset;
};

Written prepare(const MadeEntry &entry, qint64 offset)
{
    const QByteArray packed = entry.isDeflated ? ArchiveMaker::deflated(entry.data) : entry.data;
    const quint32 crc = libdeflate_crc32(0, entry.data.constData(), std::size_t(entry.data.size()));
    return {entry,
            entry.method.value_or(entry.isDeflated ? 8 : 0),
            packed,
            entry.crc.value_or(crc),
            entry.size.value_or(quint64(entry.data.size())),
            entry.packedSize.value_or(quint64(packed.size())),
            entry.offset.value_or(offset)};
}

using ArchiveMaker::number;

QByteArray numbers(const Written &entry, bool isLeftOut)
{
    if (isLeftOut)
        return QByteArray(12, '\0');
    const bool is64 = entry.entry.is64;
    return number(entry.crc, 4) + number(is64 ? in64 : entry.packedSize, 4) +
           number(is64 ? in64 : entry.size, 4);
}

QByteArray field64(const Written &entry, bool withOffset)
{
    if (!entry.entry.is64)
        return {};
    const QByteArray data = number(entry.size, 8) + number(entry.packedSize, 8);
    return ArchiveMaker::extraField(1, withOffset ? data + number(quint64(entry.offset), 8) : data);
}

QByteArray local(const Written &written)
{
    const MadeEntry &entry = written.entry;
    const QByteArray name = entry.localName.value_or(entry.name);
    const QByteArray extra = field64(written, false);
    const quint16 flags = entry.flags | (entry.hasDescriptor ? 8 : 0);
    QByteArray bytes = "PK\x03\x04" + number(20, 2) + number(flags, 2) +
                       number(entry.localMethod.value_or(written.method), 2) + number(entry.dosTime, 2) +
                       number(entry.dosDate, 2) + numbers(written, entry.hasDescriptor) +
                       number(quint64(name.size()), 2) + number(quint64(extra.size()), 2) + name + extra +
                       written.packed;
    if (entry.hasDescriptor)
        bytes += "PK\x07\x08" + numbers(written, false);
    return bytes;
}

QByteArray central(const Written &written)
{
    const MadeEntry &entry = written.entry;
    const QByteArray extra = field64(written, true) + entry.extra;
    const quint16 flags = entry.flags | (entry.hasDescriptor ? 8 : 0);
    return "PK\x01\x02" + number(20, 1) + number(entry.system, 1) + number(20, 2) + number(flags, 2) +
           number(written.method, 2) + number(entry.dosTime, 2) + number(entry.dosDate, 2) +
           numbers(written, false) + number(quint64(entry.name.size()), 2) +
           number(quint64(extra.size()), 2) + number(0, 2) + number(0, 2) + number(0, 2) +
           number(entry.attributes, 4) + number(entry.is64 ? in64 : quint64(written.offset), 4) + entry.name +
           extra;
}

QByteArray end64(quint64 count, quint64 size, quint64 offset, quint64 position)
{
    return "PK\x06\x06" + number(44, 8) + number(45, 2) + number(45, 2) + number(0, 8) + number(count, 8) +
           number(count, 8) + number(size, 8) + number(offset, 8) + "PK\x06\x07" + number(0, 4) +
           number(position, 8) + number(1, 4);
}

/// The records behind the directory, which ends at \a position.
QByteArray end(quint64 count, quint64 size, quint64 offset, const ArchiveMaker::Options &options,
               quint64 position)
{
    QByteArray bytes;
    if (options.is64) {
        bytes = end64(count, size, offset, position);
        count = 0xffff;
        size = offset = in64;
    }
    return bytes + "PK\x05\x06" + number(0, 4) + number(count, 2) + number(count, 2) + number(size, 4) +
           number(offset, 4) + number(quint64(options.comment.size()), 2) + options.comment;
}

} // namespace

QByteArray ArchiveMaker::make(const QList<MadeEntry> &entries, const Options &options)
{
    QByteArray bytes = options.prefix;
    QByteArray directory;
    const qint64 base = options.countsPrefix ? 0 : options.prefix.size();
    for (const MadeEntry &entry : entries) {
        const Written written = prepare(entry, bytes.size() - base);
        bytes += local(written);
        directory += central(written);
    }
    const quint64 offset = quint64(bytes.size() - base);
    bytes += directory;
    return bytes + end(quint64(entries.size()), quint64(directory.size()), offset, options,
                       quint64(bytes.size() - base));
}

QByteArray ArchiveMaker::make(const QList<MadeEntry> &entries)
{
    return make(entries, Options());
}

QByteArray ArchiveMaker::makeMany(int count, bool is64)
{
    constexpr qsizetype nameAt = 46;
    MadeEntry entry;
    entry.name = "00000000";
    const Written written = prepare(entry, 0);
    QByteArray bytes = local(written);
    const auto offset = quint64(bytes.size());
    QByteArray record = central(written);
    for (int i = 1; i <= count; ++i) {
        record.replace(nameAt, entry.name.size(),
                       QByteArray::number(i).rightJustified(entry.name.size(), '0'));
        bytes += record;
    }
    return bytes +
           end(quint64(count), quint64(bytes.size()) - offset, offset, {.is64 = is64}, quint64(bytes.size()));
}

QByteArray ArchiveMaker::deflated(const QByteArray &data)
{
    constexpr int level = 6;
    auto *compressor = libdeflate_alloc_compressor(level);
    QByteArray bytes(qsizetype(libdeflate_deflate_compress_bound(compressor, std::size_t(data.size()))),
                     Qt::Uninitialized);
    bytes.resize(qsizetype(libdeflate_deflate_compress(compressor, data.constData(), std::size_t(data.size()),
                                                       bytes.data(), std::size_t(bytes.size()))));
    libdeflate_free_compressor(compressor);
    return bytes;
}

QByteArray ArchiveMaker::extraField(quint16 id, const QByteArray &data)
{
    return number(id, 2) + number(quint64(data.size()), 2) + data;
}

QByteArray ArchiveMaker::number(quint64 value, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += char(value >> (8 * i));
    return result;
}
