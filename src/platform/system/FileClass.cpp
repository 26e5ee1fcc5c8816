#include "FileClass.h"

#include "DesktopEntry.h"
#include "EnvironmentText.h"
#include "Paths.h"
#include "RegistryStore.h"

#include <QFileInfo>
#include <QProcess>
#include <algorithm>

namespace {

QString textAt(const RegistryStore &store, const QString &section)
{
    const auto value = store.value(RegistryStore::Root::Classes, section, {});
    const QString *text = value ? std::get_if<QString>(&value->data) : nullptr;
    if (!text)
        return {};
    return value->type == RegistryType::ExpandableString ? EnvironmentText::expand(*text) : *text;
}

QStringList sectionsAt(const RegistryStore &store, const QString &section)
{
    return store.sectionNames(RegistryStore::Root::Classes, section).value_or(QStringList());
}

/// \a name, of which case does not count, with only such signs as file names and type names share.
QString idOf(const QString &name)
{
    return QString::fromLatin1(name.toLower().toUtf8().toPercentEncoding({}, "~", '+').toLower());
}

QString actionId(const QString &verb)
{
    QString id = idOf(verb);
    std::replace_if(
        id.begin(), id.end(), [](QChar sign) { return !sign.isLetterOrNumber(); }, QChar(u'-'));
    return id;
}

/// \a text in one line, with only such signs as a file of the desktop may hold.
QString plain(const QString &text)
{
    return QString::fromUtf8(text.simplified().toUtf8()).removeIf([](QChar sign) {
        return sign.category() == QChar::Other_Control || sign.unicode() >= 0xFFFE;
    });
}

/// A pattern with these signs would match more than one extension, or for none.
bool isExtension(const QString &section)
{
    return section.size() > 1 && section.startsWith(u'.') && plain(section) == section &&
           std::none_of(section.begin(), section.end(),
                        [](QChar sign) { return QLatin1String("/*?[").contains(sign); });
}

QStringList patternsOf(const RegistryStore &store, const QString &className)
{
    QStringList patterns;
    for (const QString &section : sectionsAt(store, {})) {
        if (isExtension(section) && textAt(store, section).compare(className, Qt::CaseInsensitive) == 0)
            patterns << u'*' + section;
    }
    return patterns;
}

/// \a command, in which "%1" is replaced by the file, as an Exec key has it.
QString execOf(const QString &command)
{
    QStringList words = QProcess::splitCommand(command);
    if (words.isEmpty())
        return {};
    words.first() = Paths::native(words.first());
    QStringList exec;
    for (const QString &word : words)
        exec << (word == QLatin1String("%1") ? QStringLiteral("%f") : DesktopEntry::execWord(word));
    return exec.join(u' ');
}

QString programOf(const QString &command)
{
    return QFileInfo(Paths::native(QProcess::splitCommand(command).value(0))).completeBaseName();
}

/// The icon of a program has that program's name. \a text ends with "," and an index.
QString iconOf(const QString &text)
{
    return programOf(text.left(text.lastIndexOf(u',')));
}

} // namespace

FileClass FileClass::read(const RegistryStore &store, const QString &className)
{
    FileClass found;
    if (className.isEmpty())
        return found;
    found.id = idOf(className);
    found.description = plain(textAt(store, className));
    found.patterns = patternsOf(store, className);
    found.icon = iconOf(textAt(store, className + QStringLiteral("\\DefaultIcon")));
    const QString shell = className + QStringLiteral("\\shell");
    for (const QString &verb : sectionsAt(store, shell)) {
        const QString section = shell + u'\\' + verb;
        const QString command = textAt(store, section + QStringLiteral("\\command"));
        if (verb.compare(QLatin1String("open"), Qt::CaseInsensitive) == 0) {
            found.program = programOf(command);
            found.exec = execOf(command);
        } else if (!command.isEmpty()) {
            found.actions.append({actionId(verb), textAt(store, section).remove(u'&'), execOf(command)});
        }
    }
    return found;
}
