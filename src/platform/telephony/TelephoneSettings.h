#pragma once

#include "LineSettings.h"

#include <QList>

/// The telephone lines that the user has entered, and the rules by which numbers are dialled. They are kept
/// in one file in the user's configuration folder, which nobody else may read, for it has passwords.
struct TelephoneSettings
{
    QList<LineSettings> lines;
    QString outsidePrefix; ///< dialled in front of each number that is no international one

    /// Nothing where the file is missing or cannot be read or understood.
    static TelephoneSettings read();

    /// Throws RuntimeError 61, 70 or another file error, also where the file that is there cannot be read; it
    /// is then unchanged. One that could not be understood is kept beside the new one with ".damaged" behind
    /// its name.
    void write() const;

    static QString fileName();
};
