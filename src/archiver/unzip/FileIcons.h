#pragma once

#include <QHash>
#include <QIcon>

/// The icons of the kinds of files, one for each extension that was asked for. A kind is known by the name's
/// extension alone; no file is looked at.
class FileIcons
{
public:
    inline static const QString defaultKey = QStringLiteral("DEFAULT");

    FileIcons();

    /// The key of the icon of a file called \a fileName: its extension with the dot, in capitals, or the
    /// default key where it has none. An extension that is met for the first time gets an entry.
    QString keyOf(const QString &fileName);

    /// An empty icon where there is no such key.
    QIcon icon(const QString &key) const { return m_entries.value(key).icon; }
    /// The name of the kind, in the language of the desktop.
    QString tag(const QString &key) const { return m_entries.value(key).tag; }
    int count() const { return int(m_entries.size()); }

private:
    struct Entry
    {
        QIcon icon;
        QString tag;
    };
    static Entry entryOf(const QString &extension);

    QHash<QString, Entry> m_entries;
};
