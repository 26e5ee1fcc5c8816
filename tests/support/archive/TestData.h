#pragma once

#include <QByteArray>
#include <QRandomGenerator>

/// Data for tests.
namespace TestData {

/// Bytes that do not shrink, the same each time.
inline QByteArray noise(qsizetype size, quint32 seed = 1)
{
    QByteArray data(size, Qt::Uninitialized);
    QRandomGenerator random(seed);
    for (char &byte : data)
        byte = char(random.generate());
    return data;
}

} // namespace TestData
