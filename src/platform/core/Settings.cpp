#include "Settings.h"

#include "RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <cerrno>
#include <unistd.h>

namespace {

QString keyOf(const QString &section, const QString &key)
{
    return section + u'/' + key;
}

void keepDamaged(const QString &path)
{
    const QString kept = path + QStringLiteral(".damaged");
    QFile::remove(kept);
    QFile::copy(path, kept);
}

/// QSettings tells only that it failed; the reason is read off the file and its folder.
RuntimeError reasonFor(const QString &path)
{
    const bool exists = QFileInfo::exists(path);
    const QString written = exists ? path : QFileInfo(path).path();
    const bool allowed = ::access(QFile::encodeName(written).constData(), W_OK) == 0;
    return RuntimeError::fromErrno(allowed ? ENOSPC : errno, path);
}

} // namespace

QString Settings::fileName(const QString &application)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/' + application
           + QStringLiteral(".ini");
}

QString Settings::get(const QString &application, const QString &section, const QString &key,
                      const QString &fallback)
{
    const QSettings file(fileName(application), QSettings::IniFormat);
    return file.value(keyOf(section, key), fallback).toString();
}

void Settings::save(const QString &application, const QString &section, const QString &key,
                    const QString &value)
{
    const QString path = fileName(application);
    QSettings file(path, QSettings::IniFormat);
    if (file.status() == QSettings::FormatError)
        keepDamaged(path);
    file.setValue(keyOf(section, key), value);
    file.sync();
    if (file.status() == QSettings::AccessError)
        throw reasonFor(path);
}
