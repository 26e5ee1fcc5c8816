#pragma once

#include "LineSettings.h"
#include "ScratchFolder.h"
#include "ScratchVariable.h"

#include <QStringList>

/// An account at a server on this computer, with a file for a microphone.
struct SipTestAccount
{
    ScratchFolder folder;
    /// Where the folder of the process is made.
    ScratchVariable runtime{"XDG_RUNTIME_DIR", folder.path().toUtf8()};
    LineSettings settings;

    explicit SipTestAccount(const QString &server);

    LineSettings registering() const;

    /// The files that a baresip process of the suite has left or still needs.
    QStringList files() const;

    /// Of the process that is starting.
    quint16 controlPort() const;
};
