#include "cRegistry.h"

#include "EnvironmentText.h"
#include "FileAssociations.h"
#include "NulTerminated.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QtEndian>

namespace {

[[noreturn]] void fail(const QString &text)
{
    throw RuntimeError(cRegistry::Failure, text, Paths::applicationTitle + QStringLiteral(".cRegistry"));
}

RegistryValue textValue(RegistryType type, const QString &text)
{
    if (type == RegistryType::String && text.count(u'%') >= 2)
        type = RegistryType::ExpandableString;
    return {type, text};
}

bool isBytes(const QVariant &value)
{
    return value.typeId() == QMetaType::QByteArray;
}

bool isInteger(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
        return true;
    default:
        return false;
    }
}

bool fits(RegistryType type, const QVariant &value)
{
    switch (type) {
    case RegistryType::String:
    case RegistryType::ExpandableString:
        return !isBytes(value) && value.canConvert<QString>();
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return isInteger(value);
    case RegistryType::Binary:
    case RegistryType::Link:
    case RegistryType::MultiString:
        return isBytes(value);
    }
    return false;
}

/// What is stored for \a value, which fits \a type.
RegistryValue toStore(RegistryType type, const QVariant &value)
{
    switch (type) {
    case RegistryType::String:
    case RegistryType::ExpandableString:
        return textValue(type, value.toString());
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return {RegistryType::Number, quint32(value.toLongLong())};
    default:
        return {type, value.toByteArray()};
    }
}

/// \a value in an error's text.
QString shown(const QVariant &value)
{
    return isBytes(value) ? QString::fromLatin1(value.toByteArray().toHex()) : value.toString();
}

bool give(const std::optional<QStringList> &found, QStringList &names, int &count)
{
    names = found.value_or(QStringList());
    count = int(names.size());
    return found.has_value();
}

QString orElse(const QString &text, const QString &other)
{
    return text.isEmpty() ? other : text;
}

QString inQuotes(const QString &path)
{
    const QString trimmed = path.trimmed();
    const bool isQuoted = trimmed.size() >= 2 && trimmed.startsWith(u'"') && trimmed.endsWith(u'"');
    return isQuoted ? trimmed : u'"' + trimmed + u'"';
}

} // namespace

cRegistry::cRegistry(const RegistryStore &store)
    : m_store(store)
{}

bool cRegistry::KeyExists() const
{
    return m_store.keyExists(root(), SectionKey);
}

void cRegistry::CreateKey()
{
    if (m_store.createKey(root(), SectionKey) != RegistryResult::Ok)
        fail(QStringLiteral("Failed to create registry Key: '%1'").arg(SectionKey));
}

void cRegistry::DeleteKey()
{
    if (m_store.deleteKey(root(), SectionKey) != RegistryResult::Ok)
        fail(QStringLiteral("Failed to delete registry Key: '%1',Section: '%2'")
                 .arg(QString::number(ClassKey), SectionKey));
}

void cRegistry::DeleteValue()
{
    const RegistryResult result =
        KeyExists() ? m_store.deleteValue(root(), SectionKey, ValueKey) : RegistryResult::NoRights;
    switch (result) {
    case RegistryResult::Ok:
        return;
    case RegistryResult::NoRights: // the key did not even open
        fail(QStringLiteral("Failed to open key '%1',Section: '%2' for delete access")
                 .arg(QString::number(ClassKey), SectionKey));
    default:
        fail(QStringLiteral("Failed to delete registry Key: '%1',Section: '%2',Key: '%3'")
                 .arg(QString::number(ClassKey), SectionKey, ValueKey));
    }
}

QVariant cRegistry::Value() const
{
    const std::optional<RegistryValue> value = m_store.value(root(), SectionKey, ValueKey);
    if (!value)
        return Default;
    switch (value->type) {
    case RegistryType::String:
        return upToNul(std::get<QString>(value->data));
    case RegistryType::ExpandableString:
        return EnvironmentText::expand(upToNul(std::get<QString>(value->data)));
    case RegistryType::Number:
        return qint32(std::get<quint32>(value->data));
    case RegistryType::BigEndianNumber:
        return qint32(qbswap(std::get<quint32>(value->data)));
    default:
        return std::get<QByteArray>(value->data);
    }
}

void cRegistry::setValue(const QVariant &value)
{
    const bool isStored =
        fits(ValueType, value) &&
        m_store.setValue(root(), SectionKey, ValueKey, toStore(ValueType, value)) == RegistryResult::Ok;
    if (!isStored)
        fail(QStringLiteral("Failed to set registry value Key: '%1',Section: '%2',Key: '%3' to value: '%4'")
                 .arg(QString::number(ClassKey), SectionKey, ValueKey, shown(value)));
}

bool cRegistry::EnumerateValues(QStringList &names, int &count) const
{
    return give(m_store.valueNames(root(), SectionKey), names, count);
}

bool cRegistry::EnumerateSections(QStringList &names, int &count) const
{
    const bool exists = give(m_store.sectionNames(root(), SectionKey), names, count);
    for (QString &name : names)
        name = upToNul(name);
    return exists;
}

void cRegistry::writeDefault(const QString &section, const QString &text)
{
    cRegistry key(m_store);
    key.ClassKey = ClassesRoot;
    key.SectionKey = section;
    key.setValue(text);
}

void cRegistry::writeVerb(const QString &className, const QString &verb, const QString &text,
                          const QString &command)
{
    const QString section = className + QStringLiteral("\\shell\\") + verb;
    writeDefault(section, text);
    writeDefault(section + QStringLiteral("\\command"), command);
}

void cRegistry::CreateEXEAssociation(const ExeAssociation &association)
{
    const QString program = inQuotes(association.exePath);
    const QString &className = association.className;
    const QString file = QStringLiteral(" \"%1\"");

    writeDefault(u'.' + association.extension, className);
    writeDefault(className, association.description);
    writeVerb(className, QStringLiteral("open"), orElse(association.openText, QStringLiteral("&Open")),
              program + file);
    if (association.isPrint)
        writeVerb(className, QStringLiteral("print"), orElse(association.printText, QStringLiteral("&Print")),
                  program + QStringLiteral(" /p") + file);
    if (association.isAdd)
        writeVerb(className, QStringLiteral("add"),
                  orElse(association.addText, QStringLiteral("&Install ") + association.description),
                  program + QStringLiteral(" /a") + file);
    if (association.isNew)
        writeVerb(className, QStringLiteral("new"), orElse(association.newText, QStringLiteral("&New")),
                  program + QStringLiteral(" /n") + file);
    if (association.defaultIcon > -1)
        writeDefault(className + QStringLiteral("\\DefaultIcon"),
                     program + u',' + QString::number(association.defaultIcon));
    FileAssociations::materialise(m_store, className);
}

void cRegistry::CreateAdditionalEXEAssociations(const QString &className, const QStringList &triples)
{
    if (triples.size() % 3 != 0)
        fail(QStringLiteral("Invalid parameter list passed to CreateAdditionalEXEAssociations - expected "
                            "Name/Text/Command"));
    for (qsizetype i = 0; i < triples.size(); i += 3)
        writeVerb(className, triples[i], triples[i + 1], triples[i + 2]);
    FileAssociations::materialise(m_store, className);
}
