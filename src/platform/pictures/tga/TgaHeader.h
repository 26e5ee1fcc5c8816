#pragma once

#include <QByteArrayView>
#include <optional>

/// What the beginning of a Targa file says, checked.
struct TgaHeader
{
    enum class Pixels { Mapped, Color, Grey };
    enum class Transparency { None, Plain, Premultiplied };

    /// Empty where \a file cannot be a Targa file, see TgaReader::recognises().
    static std::optional<TgaHeader> of(QByteArrayView file);

    qsizetype pixelBytes() const { return (depth + 7) / 8; }
    qsizetype mapEntryBytes() const { return (mapDepth + 7) / 8; }
    qint64 pixelCount() const { return qint64(width) * height; }

    Pixels pixels = Pixels::Color;
    bool isRunLengthEncoded = false;
    int width = 0;
    int height = 0;
    int depth = 0; ///< bits to the pixel
    Transparency transparency = Transparency::None;
    bool beginsRight = false;
    bool beginsTop = false;
    int firstMapIndex = 0;
    int mapLength = 0;
    int mapDepth = 0;
    qsizetype mapOffset = 0;
    qsizetype pixelOffset = 0;
};
