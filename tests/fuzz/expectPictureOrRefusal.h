#pragma once

#include "RuntimeError.h"

#include <QImage>
#include <cstdio>
#include <cstdlib>

/// Ends the process unless \a read returns a picture of at most \a mostBytes or throws error 481.
template<class Read>
void expectPictureOrRefusal(qint64 mostBytes, Read read)
{
    try {
        const QImage image = read();
        if (image.isNull() || image.sizeInBytes() > mostBytes) {
            std::fprintf(stderr, "no picture, or too large a one\n");
            std::abort();
        }
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::InvalidPicture)
            std::abort();
    }
}
