#pragma once

#include "ExeAssociation.h"
#include "RegistryStore.h"

#include <QStringList>
#include <QVariant>

/// The registry, aimed at a key and a value by properties. Reading never fails; all else throws RuntimeError
/// 26001 and leaves the registry as it was.
class cRegistry
{
public:
    static constexpr int Failure = 26001;

    // The platform's root keys, as ClassKey takes them.
    static constexpr qint32 ClassesRoot = qint32(RegistryStore::Root::Classes);
    static constexpr qint32 CurrentUser = qint32(RegistryStore::Root::User);
    static constexpr qint32 LocalMachine = qint32(RegistryStore::Root::Machine);

    explicit cRegistry(const RegistryStore &store = {});

    qint32 ClassKey = CurrentUser;
    QString SectionKey;                            ///< the path below the root, separated by "\"
    QString ValueKey;                              ///< empty for the key's default value
    QVariant Default;                              ///< what Value gives where there is none
    RegistryType ValueType = RegistryType::String; ///< what is written

    bool KeyExists() const;
    void CreateKey();
    /// A key with subkeys cannot be deleted.
    void DeleteKey();
    void DeleteValue();

    /// A text, expanded where the type says so; a number as a signed int; bytes for all other types.
    QVariant Value() const;
    /// Makes the key where it is missing. Strings take a text or a number, and one that holds two "%" becomes
    /// expandable; numbers take an integer of up to 32 bits and become type 4; all other types take bytes.
    void setValue(const QVariant &value);

    /// False, with nothing in \a names, when the key is absent.
    bool EnumerateValues(QStringList &names, int &count) const;
    bool EnumerateSections(QStringList &names, int &count) const;

    // Both write below ClassesRoot, whatever the properties say, and update the desktop's file associations.

    void CreateEXEAssociation(const ExeAssociation &association);
    /// \a triples is a flat list of name, text and command.
    void CreateAdditionalEXEAssociations(const QString &className, const QStringList &triples);

private:
    RegistryStore::Root root() const { return RegistryStore::Root(quint32(ClassKey)); }
    void writeVerb(const QString &className, const QString &verb, const QString &text,
                   const QString &command);
    void writeDefault(const QString &section, const QString &text);

    RegistryStore m_store;
};
