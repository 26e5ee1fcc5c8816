#pragma once

#include <QFont>
#include <QPainterPath>
#include <QPen>
#include <QSet>
#include <QSize>

/// How much drawing a metafile is allowed, in steps of about two nanoseconds: a second or so for the whole of
/// it. A file of a few thousand bytes could fill its picture for hours otherwise.
class WmfWork
{
public:
    explicit WmfWork(const QSize &pixels)
        : m_pixels(pixels)
    {}

    /// Returns false when no work is left: then nothing may be drawn any more.
    bool take(qint64 steps);
    bool isOver() const { return m_left < 0; }

    qint64 ofFilling(const QPainterPath &path) const;
    qint64 ofStroking(const QPainterPath &path, const QPen &pen) const;
    qint64 ofFilling(const QRectF &area) const;
    /// Finding a font takes milliseconds when it is used first.
    qint64 ofChoosing(const QFont &font);

private:
    static constexpr qint64 allowed = 500'000'000;

    qint64 ofEdges(double length) const;

    QSize m_pixels;
    QSet<QString> m_knownFonts;
    qint64 m_left = allowed;
};
