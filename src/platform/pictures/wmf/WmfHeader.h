#pragma once

#include <QByteArrayView>
#include <QRect>
#include <optional>

/// The beginning of a metafile.
struct WmfHeader
{
    static std::optional<WmfHeader> of(QByteArrayView file);

    /// The picture's place in the file's units; empty where the file does not say it.
    QRect bounds;
    int unitsPerInch = 0;
    qsizetype firstRecord = 0; ///< offset in the file
};
