#pragma once

#include <QTemporaryDir>

/// An empty home, configuration, data and state folder and an empty registry for one test; what the
/// environment said is put back.
class ScratchHome
{
public:
    ScratchHome();
    ~ScratchHome();

    QString path() const { return m_folder.path(); }
    QString file(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    QByteArray m_home;
    QByteArray m_config;
    QByteArray m_data;
    QByteArray m_state;
    QString m_machine;
};
