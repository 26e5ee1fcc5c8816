#include "Settings.h"

#include "FileLock.h"
#include "Files.h"
#include "RuntimeError.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>
#include <cerrno>
#include <optional>

// Not QSettings: on a full disk its version here puts a truncated file in the place of the old one and
// reports no error.

namespace {

constexpr int lockTimeout = 2000;     // milliseconds
constexpr unsigned long lockPoll = 5; // milliseconds

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

/// The lock against other writers of the settings, whose file goes with it. Without rights in the folder it
/// is not held, and the write itself reports the reason.
class SettingsLock
{
public:
    /// Throws RuntimeError 70 when another process, perhaps a stopped one, keeps the lock.
    explicit SettingsLock(const QString &path)
        : m_path(path)
    {
        QElapsedTimer time;
        time.start();
        for (tryToLock(); m_lock->error() == EWOULDBLOCK; tryToLock()) {
            if (time.hasExpired(lockTimeout))
                throw RuntimeError(ErrorNumber::PermissionDenied);
            QThread::msleep(lockPoll);
        }
    }
    ~SettingsLock()
    {
        if (m_lock->isHeld())
            QFile::remove(m_path);
    }
    SettingsLock(const SettingsLock &) = delete;
    SettingsLock &operator=(const SettingsLock &) = delete;

private:
    void tryToLock() { m_lock.emplace(m_path, FileLock::IfTaken::GiveUp); }

    QString m_path;
    std::optional<FileLock> m_lock;
};

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
    const SettingsLock lock(path + QStringLiteral(".lock"));

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
