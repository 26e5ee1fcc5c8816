#include "WmfReader.h"

#include <QtEndian>

bool WmfReader::recognises(QByteArrayView file)
{
    return file.startsWith("\xD7\xCD\xC6\x9A") ||
           file.startsWith(QByteArrayView("\x01\x00\x09\x00\x00\x03", 6)) ||
           file.startsWith(QByteArrayView("\x02\x00\x09\x00\x00\x03", 6));
}
