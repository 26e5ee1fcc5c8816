#pragma once

#include <QByteArray>

/// What a listing shows of one entry.
struct ListedEntry
{
    qint32 ucsize = 0; ///< the size, at most 2 GiB - 1
    qint32 csiz = 0;   ///< the packed size, at most 2 GiB - 1
    int cfactor = 0;   ///< the percentage saved
    int mo = 0;
    int dy = 0;
    int yr = 0; ///< with its century
    int hh = 0;
    int mm = 0;
    char c = ' ';
    QByteArray fname; ///< at most 255 bytes, "/" separates; a folder's ends in "/"
    QByteArray meth;
    quint32 crc = 0;
    char fCrypt = ' '; ///< 'E' or ' '
};
