#include "NetstringReader.h"

#include <algorithm>

namespace {

constexpr qsizetype mostDigits = 5;

bool isNumber(const QByteArray &text)
{
    return !text.isEmpty() &&
           std::all_of(text.cbegin(), text.cend(), [](char sign) { return sign >= '0' && sign <= '9'; });
}

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
    const qsizetype length = m_rest.left(colon).toInt();
    m_isBroken = !isNumber(m_rest.left(colon)) || length > longest;
    const qsizetype end = colon + 1 + length;
    if (m_isBroken || m_rest.size() <= end)
        return false;
    m_isBroken = m_rest[end] != ',';
    if (m_isBroken)
        return false;
    contents.append(m_rest.mid(colon + 1, length));
    m_rest.remove(0, end + 1);
    return true;
}
