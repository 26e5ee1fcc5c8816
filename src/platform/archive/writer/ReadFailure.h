#pragma once

#include <QByteArray>

/// A file that is to be archived cannot be read, though it could be at the beginning of the job.
struct ReadFailure
{
    QByteArray path;
    int error = 0; ///< a value of errno
};
