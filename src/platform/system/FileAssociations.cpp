#include "FileAssociations.h"

#include "DesktopEntry.h"
#include "FileClass.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamWriter>

namespace {

constexpr int toolPatience = 10000; // milliseconds

/// The types that the system itself gives to the extensions of \a found.
QStringList knownTypes(const FileClass &found)
{
    const QMimeDatabase database;
    QStringList known;
    for (const QString &pattern : found.patterns) {
        for (const QMimeType &type : database.mimeTypesForFileName(QString(pattern).replace(u'*', u'x'))) {
            if (!type.name().startsWith(FileClass::typePrefix))
                known << type.name();
        }
    }
    known.removeDuplicates();
    return known;
}

QByteArray mimePackage(const FileClass &found)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("mime-info"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info"));
    xml.writeStartElement(QStringLiteral("mime-type"));
    xml.writeAttribute(QStringLiteral("type"), found.type());
    xml.writeTextElement(QStringLiteral("comment"), found.description);
    for (const QString &type : knownTypes(found)) { // else the file's content would decide, not its name
        xml.writeEmptyElement(QStringLiteral("sub-class-of"));
        xml.writeAttribute(QStringLiteral("type"), type);
    }
    for (const QString &pattern : found.patterns) {
        xml.writeEmptyElement(QStringLiteral("glob"));
        xml.writeAttribute(QStringLiteral("pattern"), pattern);
        xml.writeAttribute(QStringLiteral("weight"), QStringLiteral("60")); // above what the system knows
    }
    xml.writeEndDocument();
    return bytes;
}

void addLine(QByteArray &bytes, const char *key, const QString &text)
{
    bytes += key + ('=' + DesktopEntry::escaped(text).toUtf8()) + '\n';
}

QByteArray desktopFile(const FileClass &found)
{
    QStringList actions;
    for (const FileClass::Action &action : found.actions)
        actions << action.id + u';';

    QByteArray bytes = "[Desktop Entry]\nType=Application\nNoDisplay=true\n";
    addLine(bytes, "Name", found.program);
    addLine(bytes, "MimeType", found.type() + u';');
    addLine(bytes, "Exec", found.exec);
    if (!found.icon.isEmpty())
        addLine(bytes, "Icon", found.icon);
    addLine(bytes, "Actions", actions.join(QString()));
    for (const FileClass::Action &action : found.actions) {
        bytes += "\n[Desktop Action " + action.id.toUtf8() + "]\n";
        addLine(bytes, "Name", action.text);
        addLine(bytes, "Exec", action.exec);
    }
    return bytes;
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    Files::write(path, bytes);
}

void runTool(const QString &name, const QStringList &arguments)
{
    if (QStandardPaths::findExecutable(name).isEmpty())
        return;
    QProcess tool;
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.setStandardOutputFile(QProcess::nullDevice());
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(name, arguments);
    if (!tool.waitForFinished(toolPatience)) {
        tool.kill();
        tool.waitForFinished();
    }
}

} // namespace

void FileAssociations::materialise(const RegistryStore &store, const QString &className)
{
    const FileClass found = FileClass::read(store, className);
    if (found.patterns.isEmpty() || found.exec.isEmpty())
        return;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString mime = data + QStringLiteral("/mime");
    const QString applications = data + QStringLiteral("/applications");
    const QString entry = found.fileName() + QStringLiteral(".desktop");
    try {
        write(mime + QStringLiteral("/packages/") + found.fileName() + QStringLiteral(".xml"),
              mimePackage(found));
        write(applications + u'/' + entry, desktopFile(found));
    } catch (const RuntimeError &) {
        return;
    }
    runTool(QStringLiteral("update-mime-database"), {mime});
    runTool(QStringLiteral("update-desktop-database"), {applications});
    runTool(QStringLiteral("xdg-mime"), {QStringLiteral("default"), entry, found.type()});
}
