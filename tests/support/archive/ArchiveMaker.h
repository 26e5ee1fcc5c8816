#pragma once

#include "MadeEntry.h"

#include <QList>

/// Makes archives byte by byte, also such as no honest program writes.
namespace ArchiveMaker {

struct Options
{
    QByteArray prefix = {};
    QByteArray comment = {};
    bool countsPrefix = false; ///< the offsets do
    bool is64 = false;         ///< there is a 64-bit end record
};

QByteArray make(const QList<MadeEntry> &entries, const Options &options);
QByteArray make(const QList<MadeEntry> &entries);

/// One empty file that the directory names so many times: "00000001", "00000002" ... Without
/// the 64-bit end record a large count overflows, as with writers that do not know that record.
QByteArray makeMany(int count, bool is64 = true);

/// \a data as a raw stream.
QByteArray deflated(const QByteArray &data);

QByteArray extraField(quint16 id, const QByteArray &data);
QByteArray number(quint64 value, int bytes);

} // namespace ArchiveMaker
