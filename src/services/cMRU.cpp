#include "cMRU.h"

#include "RuntimeError.h"
#include "cRegistry.h"

#include <algorithm>

namespace {

constexpr int usualMaxCount = 16;
constexpr int mostRead = 1000; // a damaged count must not fill the memory

const QString maxCountName = QStringLiteral("MaxCount");
const QString countName = QStringLiteral("Count");

QString itemName(int index)
{
    return QStringLiteral("Item%1").arg(index);
}

void write(cRegistry &registry, const QString &name, RegistryType type, const QVariant &value)
{
    registry.ValueKey = name;
    registry.ValueType = type;
    registry.setValue(value);
}

QVariant read(cRegistry &registry, const QString &name, const QVariant &fallback)
{
    registry.ValueKey = name;
    registry.Default = fallback;
    return registry.Value();
}

int readNumber(cRegistry &registry, const QString &name, int fallback)
{
    bool isNumber = false;
    const int number = read(registry, name, fallback).toInt(&isNumber);
    return isNumber ? number : fallback;
}

} // namespace

void cMRU::setMaxCount(int count)
{
    m_maxCount = count;
    m_items = m_items.mid(0, std::max(count, 0));
}

QString cMRU::item(int index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return m_items[index - 1];
}

void cMRU::Add(const QString &text)
{
    m_items.removeOne(text);
    m_items.prepend(text);
    setMaxCount(m_maxCount);
}

void cMRU::Serialise(const cRegistry &registry) const
{
    cRegistry target = registry;
    write(target, maxCountName, RegistryType::Number, m_maxCount);
    write(target, countName, RegistryType::Number, Count());
    for (int i = 1; i <= Count(); ++i)
        write(target, itemName(i), RegistryType::String, item(i));
}

void cMRU::DeSerialise(const cRegistry &registry)
{
    cRegistry source = registry;
    m_maxCount = readNumber(source, maxCountName, m_maxCount);
    if (m_maxCount < 1)
        m_maxCount = usualMaxCount;
    const int count = std::min({readNumber(source, countName, 0), m_maxCount, mostRead});
    m_items.clear();
    for (int i = 1; i <= count; ++i)
        m_items << read(source, itemName(i), QString()).toString();
}
