#include "NetstringReader.h"

namespace {

constexpr qsizetype mostDigits = 5;

} // namespace

QList<QByteArray> NetstringReader::add(const QByteArray &bytes)
{
    QList<QByteArray> contents;
    if (m_isBroken)
        return contents;
    m_rest += bytes;
    while (takeNext(contents)) {
    }
    return contents;
}

bool NetstringReader::takeNext(QList<QByteArray> &contents)
{
    const qsizetype colon = m_rest.left(mostDigits + 1).indexOf(':');
    if (colon < 0) {
        m_isBroken = m_rest.size() > mostDigits;
        return false;
    }
    bool isNumber = false;
    const uint length = m_rest.left(colon).toUInt(&isNumber);
    m_isBroken = !isNumber || length > longest;
    const qsizetype end = colon + 1 + qsizetype(length);
    if (m_isBroken || m_rest.size() <= end)
        return false;
    m_isBroken = m_rest[end] != ',';
    if (m_isBroken)
        return false;
    contents.append(m_rest.mid(colon + 1, qsizetype(length)));
    m_rest.remove(0, end + 1);
    return true;
}
