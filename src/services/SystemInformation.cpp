#include "SystemInformation.h"

#include "NulTerminated.h"
#include "Paths.h"

#include <QFileInfo>
#include <QProcess>

namespace {

constexpr qsizetype bufferSize = 1024; // characters, with the NUL at the end

QString byteByByte(quint32 number)
{
    QString text = QStringLiteral("&h");
    for (int shift = 24; shift >= 0; shift -= 8)
        text += QString::number(number >> shift & 0xFF, 16).toUpper();
    return text;
}

bool machineText(const QString &keyName, const QString &valueName, QString &result)
{
    return SystemInformation::GetKeyValue(RegistryStore::Root::Machine, keyName, valueName, result);
}

/// Native; an empty text where there is none.
QString program()
{
    QString path;
    if (machineText(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"), QStringLiteral("PATH"),
                    path))
        return Paths::native(path);
    if (!machineText(QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"), QStringLiteral("MSINFO"),
                     path))
        return {};
    const QString inFolder = Paths::native(path + QStringLiteral("\\MSINFO32.EXE"));
    return QFileInfo::exists(inFolder) ? inFolder : QString();
}

} // namespace

bool SystemInformation::GetKeyValue(RegistryStore::Root root, const QString &keyName,
                                    const QString &valueName, QString &result)
{
    result.clear();
    const std::optional<RegistryValue> value = RegistryStore().value(root, keyName, valueName);
    if (!value)
        return false;
    if (const QString *text = std::get_if<QString>(&value->data); text && text->size() >= bufferSize)
        return false;
    if (value->type == RegistryType::String)
        result = upToNul(std::get<QString>(value->data));
    else if (value->type == RegistryType::Number)
        result = byteByByte(std::get<quint32>(value->data));
    return true;
}

bool SystemInformation::start()
{
    const QString path = program();
    return !path.isEmpty() && QProcess::startDetached(path, {});
}
