#pragma once

#include <QMetaType>
#include <QString>

struct FtpReply;

/// Why a command fails. Steps of a command throw it; it becomes ResponseCode and ResponseInfo.
struct TransferFailure
{
    int code;
    QString info;

    /// With the text that belongs to \a number.
    explicit TransferFailure(int number);

    /// The server's refusal.
    static TransferFailure ofReply(const FtpReply &reply);
    /// What a function of the C library met at a local file, from its errno.
    static TransferFailure ofErrno(int error);
};

Q_DECLARE_METATYPE(TransferFailure)
