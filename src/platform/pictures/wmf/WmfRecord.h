#pragma once

#include <QByteArrayView>

/// One command of a metafile with its numbers, which are words of 16 bits, mostly in reverse order. What lies
/// beyond its end is zero.
struct WmfRecord
{
    quint16 function = 0;
    QByteArrayView parameters;

    qsizetype count() const { return parameters.size() / 2; }
    int number(qsizetype index) const { return qint16(word(index)); }
    quint16 word(qsizetype index) const;
    quint32 longWord(qsizetype index) const { return word(index) | quint32(word(index + 1)) << 16; }
    /// All bytes from word \a index on.
    QByteArrayView from(qsizetype index) const;
};
