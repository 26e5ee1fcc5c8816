#pragma once

#include "RegistryKey.h"
#include "RegistryResult.h"

#include <functional>

/// One root of the registry, a file. Readers see it whole at any time; writers follow each other.
class RegistryFile
{
public:
    using Edit = std::function<RegistryResult(RegistryKey &root)>;

    /// \a path and its folder need not exist.
    explicit RegistryFile(const QString &path);

    /// Fills \a root; it is empty when there is no file, and as it was when this fails (NoRights,
    /// Unreadable).
    RegistryResult read(RegistryKey &root) const;

    /// Runs \a edit on the newest tree and stores what it made of it. When \a edit or the writing fails, the
    /// old file is unchanged.
    RegistryResult change(const Edit &edit) const;

private:
    RegistryResult load(RegistryKey &root, QByteArray &bytes) const;
    RegistryResult store(const QByteArray &bytes) const;

    QString m_path;
};
