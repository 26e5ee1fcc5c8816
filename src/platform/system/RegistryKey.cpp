#include "RegistryKey.h"

#include <algorithm>
#include <utility>

namespace {

template<class Items>
auto named(Items &items, const QString &name)
{
    return std::find_if(items.begin(), items.end(),
                        [&](const auto &item) { return item.name.compare(name, Qt::CaseInsensitive) == 0; });
}

template<class Items>
bool removeNamed(Items &items, const QString &name)
{
    const auto found = named(items, name);
    if (found == items.end())
        return false;
    items.erase(found);
    return true;
}

RegistryKey &subkey(RegistryKey &key, const QString &name)
{
    const auto found = named(key.keys, name);
    if (found != key.keys.end())
        return *found;
    key.keys.push_back({name, {}, {}});
    return key.keys.back();
}

} // namespace

const RegistryKey *RegistryKey::find(const QStringList &path) const
{
    const RegistryKey *key = this;
    for (const QString &step : path) {
        const auto found = named(key->keys, step);
        if (found == key->keys.end())
            return nullptr;
        key = &*found;
    }
    return key;
}

RegistryKey *RegistryKey::find(const QStringList &path)
{
    return const_cast<RegistryKey *>(std::as_const(*this).find(path));
}

RegistryKey &RegistryKey::make(const QStringList &path)
{
    RegistryKey *key = this;
    for (const QString &step : path)
        key = &subkey(*key, step);
    return *key;
}

bool RegistryKey::removeKey(const QString &keyName)
{
    return removeNamed(keys, keyName);
}

const RegistryValue *RegistryKey::value(const QString &valueName) const
{
    const auto found = named(values, valueName);
    return found == values.end() ? nullptr : &found->value;
}

void RegistryKey::setValue(const QString &valueName, const RegistryValue &value)
{
    const auto found = named(values, valueName);
    if (found == values.end())
        values.push_back({valueName, value});
    else
        found->value = value;
}

bool RegistryKey::removeValue(const QString &valueName)
{
    return removeNamed(values, valueName);
}
