#pragma once

#include "RegistryFile.h"

#include <optional>

/// The registry of this computer: the user's root and the machine's, a file each, and the classes of both as
/// one. Sections are key paths below a root, separated by "\"; an empty one is the root itself.
///
/// It knows neither what the values mean nor how a failure is shown.
class RegistryStore
{
public:
    /// The platform's root-key numbers.
    enum class Root : quint32 {
        Classes = 0x80000000, ///< reads the user's "Software\Classes", then the machine's; writes the user's
        User = 0x80000001,
        Machine = 0x80000002, ///< everybody reads it, root alone writes it
    };

    /// The real files: the user's in the configuration folder, the machine's in the machine folder.
    RegistryStore();
    RegistryStore(const QString &userFile, const QString &machineFile);

    /// The path of the machine's file for every store made from now on; for tests. Gives the folder before.
    static QString setMachineFolder(const QString &folder);

    // What cannot be read is absent.

    bool keyExists(Root root, const QString &section) const;
    std::optional<RegistryValue> value(Root root, const QString &section, const QString &name) const;
    /// In order of creation; nothing when the key is absent.
    std::optional<QStringList> valueNames(Root root, const QString &section) const;
    /// Sorted; nothing when the key is absent.
    std::optional<QStringList> sectionNames(Root root, const QString &section) const;

    // After any failure the store is as it was. A number that is no Root is Absent.

    RegistryResult createKey(Root root, const QString &section);
    /// A key that has subkeys stays: NoRights.
    RegistryResult deleteKey(Root root, const QString &section);
    /// Makes the key where it is missing.
    RegistryResult setValue(Root root, const QString &section, const QString &name,
                            const RegistryValue &value);
    RegistryResult deleteValue(Root root, const QString &section, const QString &name);

private:
    struct Place
    {
        const RegistryFile *file;
        QStringList path;
    };
    QList<Place> places(Root root, const QString &section) const;

    template<class Look>
    void look(Root root, const QString &section, Look &&look) const;
    template<class Edit>
    RegistryResult change(Root root, const QString &section, Edit &&edit) const;

    RegistryFile m_user;
    RegistryFile m_machine;
};
