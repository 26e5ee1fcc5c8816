#include "WmfRecord.h"

#include <QtEndian>

quint16 WmfRecord::word(qsizetype index) const
{
    return index < count() ? qFromLittleEndian<quint16>(parameters.data() + 2 * index) : quint16(0);
}

QByteArrayView WmfRecord::from(qsizetype index) const
{
    return index < count() ? parameters.sliced(2 * index) : QByteArrayView();
}
