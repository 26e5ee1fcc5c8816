#pragma once

#include "RuntimeError.h"

/// While it exists, Qt's readers open pictures of up to so many bytes of memory. Qt has one limit for the
/// whole process, 256 MiB at first, which the end brings back.
class PictureLimit
{
public:
    /// Rounded up to whole MiB.
    explicit PictureLimit(qint64 bytes);
    ~PictureLimit();
    PictureLimit(const PictureLimit &) = delete;
    PictureLimit &operator=(const PictureLimit &) = delete;

    /// The largest picture that this computer should open, in bytes: a quarter of its memory.
    static qint64 ofThisComputer();

    /// What is thrown for a larger picture: 481.
    static RuntimeError exceeded();

private:
    int m_before;
};
