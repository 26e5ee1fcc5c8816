#pragma once

#include "RegistryValue.h"

#include <QStringList>
#include <vector>

/// One key of the registry with all that is below it. Names are compared without case and kept as they were
/// first written.
struct RegistryKey
{
    struct NamedValue
    {
        QString name; ///< empty for the key's default value
        RegistryValue value;
    };

    QString name;
    std::vector<NamedValue> values; ///< in order of creation, as are the keys
    std::vector<RegistryKey> keys;

    /// The key at \a path below this one; nullptr when it is not there.
    RegistryKey *find(const QStringList &path);
    const RegistryKey *find(const QStringList &path) const;
    /// The key at \a path, made with those above it where they are missing.
    RegistryKey &make(const QStringList &path);
    /// Removes the direct subkey \a keyName with all below it. Returns false when it is not there.
    bool removeKey(const QString &keyName);

    const RegistryValue *value(const QString &valueName) const;
    void setValue(const QString &valueName, const RegistryValue &value);
    /// Returns false when there is no such value.
    bool removeValue(const QString &valueName);
};
