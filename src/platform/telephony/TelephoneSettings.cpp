#include "TelephoneSettings.h"

#include "Files.h"
#include "Paths.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr const char *kinds[] = {"sip", "mobile", "serial"};
constexpr const char *transports[] = {"udp", "tcp", "tls"};
constexpr const char *soundEncryptions[] = {"none", "offered", "required"};
constexpr const char *modes[] = {"handset", "voice"};

struct TextField
{
    const char *key;
    QString LineSettings::*member;
};

constexpr TextField textFields[] = {
    {"label", &LineSettings::label},
    {"user", &LineSettings::user},
    {"password", &LineSettings::password},
    {"server", &LineSettings::server},
    {"certificate", &LineSettings::certificate},
    {"microphone", &LineSettings::microphone},
    {"loudspeaker", &LineSettings::loudspeaker},
    {"modem", &LineSettings::modem},
    {"port", &LineSettings::port},
    {"initialisation", &LineSettings::initialisation},
};

template<class Enum, std::size_t Count>
QString toName(const char *const (&names)[Count], Enum value)
{
    return QString::fromLatin1(names[int(value)]);
}

/// The value whose name is \a name: \a usual where there is no name, \a unknown for one that is not known.
template<class Enum, std::size_t Count>
Enum fromName(const char *const (&names)[Count], const QJsonValue &name, Enum usual, Enum unknown)
{
    const auto found = std::find(std::cbegin(names), std::cend(names), name.toString(toName(names, usual)));
    return found == std::cend(names) ? unknown : Enum(int(found - std::cbegin(names)));
}

LineSettings lineFrom(const QJsonObject &object)
{
    LineSettings line;
    for (const TextField &field : textFields)
        line.*field.member = object[QLatin1String(field.key)].toString(line.*field.member);
    line.kind = fromName(kinds, object[QStringLiteral("kind")], line.kind, line.kind);
    // What is not understood is never less encrypted than the user has asked for.
    line.transport = fromName(transports, object[QStringLiteral("transport")], line.transport,
                              LineSettings::Transport::Tls);
    line.soundEncryption = fromName(soundEncryptions, object[QStringLiteral("soundEncryption")],
                                    line.soundEncryption, LineSettings::SoundEncryption::Required);
    line.mode = fromName(modes, object[QStringLiteral("mode")], line.mode, line.mode);
    line.registers = object[QStringLiteral("registers")].toBool(line.registers);
    line.dialsByPulses = object[QStringLiteral("pulses")].toBool(line.dialsByPulses);
    line.speed = object[QStringLiteral("speed")].toInt(line.speed);
    return line;
}

QJsonObject toObject(const LineSettings &line)
{
    QJsonObject object;
    for (const TextField &field : textFields)
        object.insert(QLatin1String(field.key), line.*field.member);
    object.insert(QStringLiteral("kind"), toName(kinds, line.kind));
    object.insert(QStringLiteral("transport"), toName(transports, line.transport));
    object.insert(QStringLiteral("soundEncryption"), toName(soundEncryptions, line.soundEncryption));
    object.insert(QStringLiteral("mode"), toName(modes, line.mode));
    object.insert(QStringLiteral("registers"), line.registers);
    object.insert(QStringLiteral("pulses"), line.dialsByPulses);
    object.insert(QStringLiteral("speed"), line.speed);
    return object;
}

QByteArray bytesOf(const QString &path)
{
    try {
        return Files::read(path);
    } catch (const RuntimeError &) {
        return {};
    }
}

/// Throws RuntimeError where \a path cannot be read: what is in it would be lost.
void keepDamaged(const QString &path)
{
    if (!QFileInfo::exists(path))
        return;
    const QByteArray before = Files::read(path);
    if (!before.isEmpty() && !QJsonDocument::fromJson(before).isObject())
        Files::writePrivate(path + QStringLiteral(".damaged"), before);
}

} // namespace

QString TelephoneSettings::fileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' +
           Paths::applicationTitle + QStringLiteral(".lines.json");
}

TelephoneSettings TelephoneSettings::read()
{
    const QJsonObject root = QJsonDocument::fromJson(bytesOf(fileName())).object();
    TelephoneSettings settings;
    settings.outsidePrefix = root[QStringLiteral("outsidePrefix")].toString();
    for (const QJsonValue &line : root[QStringLiteral("lines")].toArray())
        settings.lines.append(lineFrom(line.toObject()));
    return settings;
}

void TelephoneSettings::write() const
{
    QJsonArray array;
    for (const LineSettings &line : lines)
        array.append(toObject(line));
    const QJsonObject root{{QStringLiteral("outsidePrefix"), outsidePrefix},
                           {QStringLiteral("lines"), array}};

    const QString path = fileName();
    QDir().mkpath(QFileInfo(path).path());
    keepDamaged(path);
    Files::writePrivate(path, QJsonDocument(root).toJson());
}
