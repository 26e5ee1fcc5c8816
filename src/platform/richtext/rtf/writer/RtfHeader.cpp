#include "RtfHeader.h"

#include "RtfGenerator.h"

namespace {

/// Programs that do not know who wrote a file read several spaces in a row as special ones.
QByteArray generator()
{
    return QByteArray("{\\*\\generator ") + RtfGenerator::name + ";}\n";
}

} // namespace

QByteArray RtfHeader::bytes() const
{
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1";
    for (const QByteArray &table : {fonts.table(), colours.table(), styles.table(), lists.tables()}) {
        if (!table.isEmpty())
            out.append(table).append('\n');
    }
    return out + generator();
}
