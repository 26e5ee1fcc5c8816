#pragma once

#include <QString>

/// One record of the profile file.
struct FtpProfile
{
    qint32 number = 0; ///< as it was read; the record's place in the file is what counts
    QString account;   ///< the profile's name
    QString server;
    QString userName;
    QString password;
    QString trailing; ///< no window shows it
};
