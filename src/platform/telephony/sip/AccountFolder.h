#pragma once

#include <QString>
#include <QTemporaryDir>

/// A folder for the files of one baresip process, which nobody else can read. It is removed with this object.
/// Where that did not come to pass because the suite was killed, the next one that is made removes it.
class AccountFolder
{
public:
    AccountFolder();

    bool isValid() const { return m_folder.isValid(); }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};
