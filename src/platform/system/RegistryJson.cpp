#include "RegistryJson.h"

#include "RuntimeError.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <limits>

namespace {

constexpr QLatin1String nameMember("name");
constexpr QLatin1String valuesMember("values");
constexpr QLatin1String keysMember("keys");
constexpr QLatin1String valueName("n");
constexpr QLatin1String typeMember("t");
constexpr QLatin1String textMember("s");
constexpr QLatin1String numberMember("d");
constexpr QLatin1String bytesMember("b");

QJsonObject toJson(const RegistryKey::NamedValue &named)
{
    QJsonObject object{{valueName, named.name}, {typeMember, int(named.value.type)}};
    if (const auto *text = std::get_if<QString>(&named.value.data))
        object.insert(textMember, *text);
    else if (const auto *number = std::get_if<quint32>(&named.value.data))
        object.insert(numberMember, double(*number));
    else
        object.insert(bytesMember, QString::fromLatin1(std::get<QByteArray>(named.value.data).toHex()));
    return object;
}

QJsonObject toJson(const RegistryKey &key)
{
    QJsonArray values;
    for (const RegistryKey::NamedValue &value : key.values)
        values.append(toJson(value));
    QJsonArray keys;
    for (const RegistryKey &subkey : key.keys)
        keys.append(toJson(subkey));

    QJsonObject object{{valuesMember, values}, {keysMember, keys}};
    if (!key.name.isEmpty())
        object.insert(nameMember, key.name);
    return object;
}

[[noreturn]] void refuse()
{
    throw RuntimeError(ErrorNumber::InvalidFileFormat);
}

QString textOf(const QJsonValue &value)
{
    if (!value.isString())
        refuse();
    return value.toString();
}

QJsonObject objectOf(const QJsonValue &value)
{
    if (!value.isObject())
        refuse();
    return value.toObject();
}

/// A missing list is an empty one.
QJsonArray listOf(const QJsonValue &value)
{
    if (!value.isUndefined() && !value.isArray())
        refuse();
    return value.toArray();
}

quint32 numberOf(const QJsonValue &value)
{
    const qint64 number = value.toInteger(-1);
    if (number < 0 || number > std::numeric_limits<quint32>::max())
        refuse();
    return quint32(number);
}

QByteArray bytesOf(const QJsonValue &value)
{
    const QByteArray hex = textOf(value).toUtf8();
    const QByteArray bytes = QByteArray::fromHex(hex);
    if (bytes.toHex() != hex.toLower())
        refuse();
    return bytes;
}

RegistryKey::NamedValue valueFrom(const QJsonObject &object)
{
    const auto type = RegistryType(object.value(typeMember).toInt());
    const QString name = textOf(object.value(valueName));
    switch (type) {
    case RegistryType::String:
    case RegistryType::ExpandableString:
        return {name, {type, textOf(object.value(textMember))}};
    case RegistryType::Number:
    case RegistryType::BigEndianNumber:
        return {name, {type, numberOf(object.value(numberMember))}};
    case RegistryType::Binary:
    case RegistryType::Link:
    case RegistryType::MultiString:
        return {name, {type, bytesOf(object.value(bytesMember))}};
    }
    refuse();
}

RegistryKey keyFrom(const QJsonObject &object)
{
    RegistryKey key;
    for (const QJsonValue &value : listOf(object.value(valuesMember)))
        key.values.push_back(valueFrom(objectOf(value)));
    for (const QJsonValue &value : listOf(object.value(keysMember))) {
        const QJsonObject subkey = objectOf(value);
        key.keys.push_back(keyFrom(subkey));
        key.keys.back().name = textOf(subkey.value(nameMember));
        if (key.keys.back().name.isEmpty())
            refuse();
    }
    return key;
}

} // namespace

QByteArray RegistryJson::toBytes(const RegistryKey &root)
{
    return QJsonDocument(toJson(root)).toJson();
}

std::optional<RegistryKey> RegistryJson::fromBytes(const QByteArray &bytes)
{
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return std::nullopt;
    try {
        return keyFrom(document.object());
    } catch (const RuntimeError &) {
        return std::nullopt;
    }
}
