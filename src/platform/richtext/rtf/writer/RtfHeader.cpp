#include "RtfHeader.h"

namespace {

/// Programs that do not know who wrote a file read several spaces in a row as special ones.
constexpr const char *generator = "{\\*\\generator Quill-Office Tools;}\n";

} // namespace

QByteArray RtfHeader::bytes() const
{
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1";
    for (const QByteArray &table : {fonts.table(), colours.table(), lists.tables()}) {
        if (!table.isEmpty())
            out.append(table).append('\n');
    }
    return out + generator;
}
