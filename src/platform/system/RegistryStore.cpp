#include "RegistryStore.h"

#include "Paths.h"

#include <QStandardPaths>
#include <algorithm>
#include <utility>

namespace {

constexpr int longestName = 255;
constexpr int mostLevels = 255; // well under what the reader of the file can follow

QString &machineFolder()
{
    static QString folder = QStringLiteral("/var/lib/quill-office-tools");
    return folder;
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           Paths::applicationTitle;
}

bool isValid(const QStringList &path)
{
    return path.size() <= mostLevels && std::all_of(path.begin(), path.end(), [](const QString &name) {
               return name.size() <= longestName;
           });
}

template<class Items>
QStringList namesOf(const Items &items)
{
    QStringList names;
    for (const auto &item : items)
        names << item.name;
    return names;
}

void addMissing(std::optional<QStringList> &all, const QStringList &names)
{
    if (!all)
        all.emplace();
    for (const QString &name : names) {
        if (!all->contains(name, Qt::CaseInsensitive))
            all->append(name);
    }
}

} // namespace

RegistryStore::RegistryStore()
    : RegistryStore(userFolder() + QStringLiteral("/hkcu.json"),
                    machineFolder() + QStringLiteral("/hklm.json"))
{}

RegistryStore::RegistryStore(const QString &userFile, const QString &machineFile)
    : m_user(userFile)
    , m_machine(machineFile)
{}

QString RegistryStore::setMachineFolder(const QString &folder)
{
    return std::exchange(machineFolder(), folder);
}

QList<RegistryStore::Place> RegistryStore::places(Root root, const QString &section) const
{
    const QStringList path = section.split(u'\\', Qt::SkipEmptyParts);
    const QStringList inClasses = QStringList{QStringLiteral("Software"), QStringLiteral("Classes")} + path;
    switch (root) {
    case Root::Classes:
        return {{&m_user, inClasses}, {&m_machine, inClasses}};
    case Root::User:
        return {{&m_user, path}};
    case Root::Machine:
        return {{&m_machine, path}};
    }
    return {};
}

/// Calls \a look with each key that \a section names, until it returns true.
template<class Look>
void RegistryStore::look(Root root, const QString &section, Look &&look) const
{
    for (const Place &place : places(root, section)) {
        RegistryKey tree;
        place.file->read(tree);
        const RegistryKey *key = tree.find(place.path);
        if (key && look(*key))
            return;
    }
}

/// Runs \a edit on the tree that \a section is written to.
template<class Edit>
RegistryResult RegistryStore::change(Root root, const QString &section, Edit &&edit) const
{
    const QList<Place> written = places(root, section);
    if (written.isEmpty())
        return RegistryResult::Absent;
    const QStringList path = written.first().path;
    if (!isValid(path))
        return RegistryResult::InvalidPath;
    return written.first().file->change([&](RegistryKey &tree) { return edit(tree, path); });
}

bool RegistryStore::keyExists(Root root, const QString &section) const
{
    bool exists = false;
    look(root, section, [&](const RegistryKey &) { return exists = true; });
    return exists;
}

std::optional<RegistryValue> RegistryStore::value(Root root, const QString &section,
                                                  const QString &name) const
{
    std::optional<RegistryValue> found;
    look(root, section, [&](const RegistryKey &key) {
        if (const RegistryValue *value = key.value(name))
            found = *value;
        return found.has_value();
    });
    return found;
}

std::optional<QStringList> RegistryStore::valueNames(Root root, const QString &section) const
{
    std::optional<QStringList> names;
    look(root, section, [&](const RegistryKey &key) {
        addMissing(names, namesOf(key.values));
        return false;
    });
    return names;
}

std::optional<QStringList> RegistryStore::sectionNames(Root root, const QString &section) const
{
    std::optional<QStringList> names;
    look(root, section, [&](const RegistryKey &key) {
        addMissing(names, namesOf(key.keys));
        return false;
    });
    if (names)
        names->sort(Qt::CaseInsensitive);
    return names;
}

RegistryResult RegistryStore::createKey(Root root, const QString &section)
{
    return change(root, section, [](RegistryKey &tree, const QStringList &path) {
        tree.make(path);
        return RegistryResult::Ok;
    });
}

RegistryResult RegistryStore::deleteKey(Root root, const QString &section)
{
    return change(root, section, [](RegistryKey &tree, QStringList path) {
        const RegistryKey *key = tree.find(path);
        if (!key)
            return RegistryResult::Absent;
        if (path.isEmpty() || !key->keys.empty())
            return RegistryResult::NoRights;
        const QString name = path.takeLast();
        tree.find(path)->removeKey(name);
        return RegistryResult::Ok;
    });
}

RegistryResult RegistryStore::setValue(Root root, const QString &section, const QString &name,
                                       const RegistryValue &value)
{
    return change(root, section, [&](RegistryKey &tree, const QStringList &path) {
        tree.make(path).setValue(name, value);
        return RegistryResult::Ok;
    });
}

RegistryResult RegistryStore::deleteValue(Root root, const QString &section, const QString &name)
{
    return change(root, section, [&](RegistryKey &tree, const QStringList &path) {
        RegistryKey *key = tree.find(path);
        return key && key->removeValue(name) ? RegistryResult::Ok : RegistryResult::Absent;
    });
}
