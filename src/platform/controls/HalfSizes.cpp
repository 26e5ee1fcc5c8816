#include "HalfSizes.h"

#include <algorithm>

namespace {

constexpr int smallest = 64;           // pixels; a smaller picture has no copies
constexpr int pixelsOfPiece = 1 << 19; // of the picture that is copied

bool isSmall(const QImage &picture)
{
    return std::max(picture.width(), picture.height()) <= smallest;
}

/// The format of the copies: one that the painter draws without converting it.
QImage::Format formatFor(const QImage &picture)
{
    if (picture.format() == QImage::Format_Grayscale8)
        return QImage::Format_Grayscale8;
    return picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

/// Rows \a first and the one behind it, in \a format; shares the bytes where that is the picture's own.
QImage twoRows(const QImage &picture, int first, QImage::Format format)
{
    const int count = std::min(2, picture.height() - first);
    QImage rows(picture.constScanLine(first), picture.width(), count, picture.bytesPerLine(),
                picture.format());
    rows.setColorTable(picture.colorTable());
    return rows.convertToFormat(format);
}

quint32 mean(quint32 a, quint32 b, quint32 c, quint32 d)
{
    constexpr quint32 everyOther = 0x00ff00ff;
    constexpr quint32 rounding = 0x00020002;
    const auto half = [=](int shift) {
        const quint32 sum = ((a >> shift) & everyOther) + ((b >> shift) & everyOther) +
                            ((c >> shift) & everyOther) + ((d >> shift) & everyOther);
        return ((sum + rounding) >> 2) & everyOther;
    };
    constexpr int byte = 8; // bits
    return half(0) | half(byte) << byte;
}

quint8 mean(quint8 a, quint8 b, quint8 c, quint8 d)
{
    return quint8((a + b + c + d + 2) / 4);
}

/// The last column of an odd number is its own neighbour.
template<class Pixel>
void halveRows(const QImage &rows, uchar *to)
{
    const auto *upper = reinterpret_cast<const Pixel *>(rows.constScanLine(0));
    const auto *lower = reinterpret_cast<const Pixel *>(rows.constScanLine(rows.height() - 1));
    auto *out = reinterpret_cast<Pixel *>(to);
    const int pairs = rows.width() / 2;
    for (int i = 0; i < pairs; ++i)
        out[i] = mean(upper[2 * i], upper[2 * i + 1], lower[2 * i], lower[2 * i + 1]);
    const int last = rows.width() - 1;
    if (rows.width() % 2 != 0)
        out[pairs] = mean(upper[last], upper[last], lower[last], lower[last]);
}

} // namespace

void HalfSizes::setPicture(const QImage &picture)
{
    m_pictures = {picture};
    m_next = {};
    m_isComplete = isSmall(picture);
}

int HalfSizes::levelFor(double scale) const
{
    int level = 0;
    for (int side = std::max(picture().width(), picture().height()); side > smallest && scale <= 0.5;
         side = half(side)) {
        scale *= 2;
        ++level;
    }
    return level;
}

void HalfSizes::makeAll()
{
    while (!m_isComplete)
        makePiece();
}

void HalfSizes::makePiece()
{
    if (m_isComplete || (m_next.isNull() && !begin()))
        return;
    const int rows = std::max(1, pixelsOfPiece / 2 / m_pictures.last().width());
    const int end = std::min(m_next.height(), m_nextRow + rows);
    for (; m_nextRow < end; ++m_nextRow)
        halveRow(m_nextRow);
    if (m_nextRow < m_next.height())
        return;
    m_pictures.append(m_next);
    m_next = {};
    m_isComplete = isSmall(m_pictures.last());
}

/// Without memory for a copy there is none.
bool HalfSizes::begin()
{
    const QImage &from = m_pictures.last();
    m_next = QImage(half(from.width()), half(from.height()), formatFor(from));
    m_nextRow = 0;
    m_isComplete = m_next.isNull();
    return !m_isComplete;
}

void HalfSizes::halveRow(int row)
{
    const QImage rows = twoRows(m_pictures.last(), 2 * row, m_next.format());
    uchar *to = m_next.scanLine(row);
    if (m_next.format() == QImage::Format_Grayscale8)
        halveRows<quint8>(rows, to);
    else
        halveRows<quint32>(rows, to);
}
