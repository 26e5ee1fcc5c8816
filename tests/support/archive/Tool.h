#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// A program of the command line, run to its end; the tests compare with several.
struct Tool
{
    int code = -1; ///< what it ended with; -1 where it could not be run
    QByteArray output;

    /// \a folder is where it runs. \a arguments are bytes, as file names are.
    static Tool run(const QByteArray &program, const QByteArrayList &arguments, const QByteArray &folder);
};
