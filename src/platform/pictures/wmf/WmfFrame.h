#pragma once

#include "WmfHeader.h"

#include <QRectF>
#include <QSize>

/// What part of a metafile's plane is its picture, and how many pixels that has.
struct WmfFrame
{
    /// From the header where it says so; else from the first commands; else from where \a commands draw.
    static WmfFrame of(const WmfHeader &header, QByteArrayView commands);

    QRectF window; ///< in units; a negative side points to the left or up
    QSize pixels;  ///< at most 4,096 to the side
};
