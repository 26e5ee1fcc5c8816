#include "RtfHeader.h"

QByteArray RtfHeader::bytes() const
{
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1";
    for (const QByteArray &table : {fonts.table(), colours.table(), lists.tables()}) {
        if (!table.isEmpty())
            out.append(table).append('\n');
    }
    return out;
}
