#pragma once

#include "TgaHeader.h"

#include <QRgb>
#include <vector>

/// The pixels of a Targa file, one after the other as they are stored.
class TgaPixels
{
public:
    TgaPixels(QByteArrayView file, const TgaHeader &header);

    /// Throws RuntimeError 481 where the file ends before its last pixel.
    QRgb next();

private:
    QRgb stored();
    QRgb color(QByteArrayView bytes, int depth) const;
    QRgb mapped(int index) const;
    void beginPacket();
    QByteArrayView take(qsizetype count);

    QByteArrayView m_left; ///< of the file
    TgaHeader m_header;
    std::vector<QRgb> m_map;
    int m_packet = 0; ///< how many pixels of it are left
    bool m_isRun = false;
    QRgb m_run = 0;
};
