#include "UnzipSettings.h"

#include "ErrorReports.h"
#include "cRegistry.h"

namespace {

const QString section = QStringLiteral("SOFTWARE\\Brindlecode\\VBUnZip");
const QString useFolderNames = QStringLiteral("UseFolderNames");
const QString overwritePrompt = QStringLiteral("OverwritePrompt");
const QString extractTo = section + QStringLiteral("\\ExtractToMRU");
const QString fileOpen = section + QStringLiteral("\\FileOpenMRU");

cRegistry registryAt(qint32 root, const QString &key)
{
    cRegistry registry;
    registry.ClassKey = root;
    registry.SectionKey = key;
    return registry;
}

bool isSet(cRegistry &registry, const QString &name)
{
    registry.ValueKey = name;
    return registry.Value().toInt() != 0;
}

void writeNumber(cRegistry &registry, const QString &name, bool value)
{
    registry.ValueKey = name;
    registry.ValueType = RegistryType::Number;
    ignoreErrors([&] { registry.setValue(value ? 1 : 0); });
}

} // namespace

void UnzipSettings::read()
{
    const bool isMachines = registryAt(cRegistry::LocalMachine, section).KeyExists();
    const qint32 root = isMachines ? cRegistry::LocalMachine : cRegistry::CurrentUser;
    cRegistry registry = registryAt(root, section);
    UseFolderNames = isSet(registry, useFolderNames);
    OverwritePrompt = isSet(registry, overwritePrompt);
    ExtractToMRU.DeSerialise(registryAt(root, extractTo));
    FileOpenMRU.DeSerialise(registryAt(root, fileOpen));
}

void UnzipSettings::write() const
{
    writeBelow(cRegistry::CurrentUser);
    writeBelow(cRegistry::LocalMachine);
}

void UnzipSettings::writeBelow(qint32 root) const
{
    cRegistry registry = registryAt(root, section);
    writeNumber(registry, useFolderNames, UseFolderNames);
    writeNumber(registry, overwritePrompt, OverwritePrompt);
    ignoreErrors([&] { ExtractToMRU.Serialise(registryAt(root, extractTo)); });
    ignoreErrors([&] { FileOpenMRU.Serialise(registryAt(root, fileOpen)); });
}
