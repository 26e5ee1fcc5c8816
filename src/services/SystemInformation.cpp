#include "SystemInformation.h"

#include "Paths.h"
#include "cRegistry.h"

#include <QFileInfo>
#include <QProcess>

namespace {

QString machineText(const QString &section, const QString &value)
{
    cRegistry registry;
    registry.ClassKey = cRegistry::LocalMachine;
    registry.SectionKey = section;
    registry.ValueKey = value;
    return registry.Value().toString();
}

/// Native; an empty text where there is none.
QString program()
{
    const QString path =
        machineText(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH"));
    if (!path.isEmpty())
        return Paths::native(path);
    const QString folder =
        machineText(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"));
    const QString inFolder = Paths::native(folder + QStringLiteral("\\MSINFO32.EXE"));
    return !folder.isEmpty() && QFileInfo::exists(inFolder) ? inFolder : QString();
}

} // namespace

bool SystemInformation::start()
{
    const QString path = program();
    return !path.isEmpty() && QProcess::startDetached(path, {});
}
