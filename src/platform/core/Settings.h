#pragma once

#include <QList>
#include <QString>
#include <utility>

/// The small per-user map of settings: one INI file, keyed by application, section and key; values are text.
namespace Settings {

/// The stored value, or \a fallback when the key is absent or the file cannot be read.
QString get(const QString &application, const QString &section, const QString &key, const QString &fallback);

/// Stores the values by their keys at once and makes what is missing. A file that could not be understood is
/// kept beside the new one with ".damaged" behind its name. Throws RuntimeError 70, 61 or another file error
/// when the file cannot be written, 70 too when another process writes it for two seconds; it is then
/// unchanged.
void save(const QString &application, const QString &section,
          const QList<std::pair<QString, QString>> &values);
void save(const QString &application, const QString &section, const QString &key, const QString &value);

/// The INI file of \a application.
QString fileName(const QString &application);

} // namespace Settings
