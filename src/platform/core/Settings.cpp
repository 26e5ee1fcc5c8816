#include "Settings.h"

#include "Files.h"
#include "RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QMap>
#include <QStandardPaths>
#include <QUrl>

// Not QSettings: on a full disk its version here puts a truncated file in the place of the old one and
// reports no error.

namespace {

constexpr int lockTimeout = 2000; // milliseconds

using Section = QMap<QString, QString>;

struct Ini
{
    QMap<QString, Section> sections;
    bool isDamaged = false; ///< a line was not understood
};

QString decoded(const QByteArray &text)
{
    return QUrl::fromPercentEncoding(text.trimmed());
}

/// Names and values are percent-encoded where the file's own signs, or blanks at an end, would be lost.
QByteArray encoded(const QString &text)
{
    const bool hasOuterBlanks = text != text.trimmed();
    return QUrl::toPercentEncoding(text, hasOuterBlanks ? "!\"$&'()*+,-./:<>?@\\^_`{|}~"
                                                        : " !\"$&'()*+,-./:<>?@\\^_`{|}~");
}

Ini parse(const QByteArray &bytes)
{
    Ini ini;
    ini.isDamaged = !bytes.isValidUtf8();
    QString section;
    for (const QByteArray &raw : bytes.split('\n')) {
        const QByteArray line = raw.trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (line.startsWith('[') && line.endsWith(']'))
            section = decoded(line.mid(1, line.size() - 2));
        else if (equals >= 0)
            ini.sections[section].insert(decoded(line.left(equals)), decoded(line.mid(equals + 1)));
        else
            ini.isDamaged = true;
    }
    return ini;
}

QByteArray serialise(const Ini &ini)
{
    QByteArray bytes;
    for (auto section = ini.sections.cbegin(); section != ini.sections.cend(); ++section) {
        bytes += '[' + encoded(section.key()) + "]\n";
        for (auto key = section->cbegin(); key != section->cend(); ++key)
            bytes += encoded(key.key()) + '=' + encoded(key.value()) + '\n';
    }
    return bytes;
}

} // namespace

QString Settings::fileName(const QString &application)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + application +
           QStringLiteral(".ini");
}

QString Settings::get(const QString &application, const QString &section, const QString &key,
                      const QString &fallback)
{
    try {
        return parse(Files::read(fileName(application))).sections.value(section).value(key, fallback);
    } catch (const RuntimeError &) {
        return fallback;
    }
}

void Settings::save(const QString &application, const QString &section,
                    const QList<std::pair<QString, QString>> &values)
{
    const QString path = fileName(application);
    QDir().mkpath(QFileInfo(path).path());
    QLockFile lock(path + QStringLiteral(".lock"));
    // Without the lock the write itself reports the reason; that of a killed process may be there for a
    // while.
    lock.tryLock(lockTimeout);

    const QByteArray before = QFileInfo::exists(path) ? Files::read(path) : QByteArray();
    Ini ini = parse(before);
    if (ini.isDamaged)
        Files::write(path + QStringLiteral(".damaged"), before);
    for (const auto &[key, value] : values)
        ini.sections[section][key] = value;
    Files::write(path, serialise(ini));
}

void Settings::save(const QString &application, const QString &section, const QString &key,
                    const QString &value)
{
    save(application, section, {{key, value}});
}
