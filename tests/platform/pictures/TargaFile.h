#pragma once

#include <QByteArray>
#include <QtEndian>

/// A Targa file as a test describes it.
struct TargaFile
{
    QByteArray bytes() const
    {
        QByteArray header(18, '\0');
        header[1] = char(mapKind);
        header[2] = char(kind);
        qToLittleEndian<quint16>(quint16(map.size() / 3), header.data() + 5);
        header[7] = char(mapKind == 0 ? 0 : 24);
        qToLittleEndian<quint16>(width, header.data() + 12);
        qToLittleEndian<quint16>(height, header.data() + 14);
        header[16] = char(depth);
        header[17] = char(descriptor);
        return header + map + pixels;
    }

    int kind = 2;
    quint16 width = 2;
    quint16 height = 1;
    int depth = 32;
    int descriptor = 0;
    QByteArray pixels = {};
    int mapKind = 0;
    QByteArray map = {}; ///< colours of 24 bits
};
