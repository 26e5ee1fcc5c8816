#include "PictureBox.h"

#include "EventGate.h"
#include "RuntimeError.h"
#include "Twips.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double squaresFrom = 5;      // pixels of the screen to one of the picture
constexpr qint64 madeAtOnce = 1 << 20; // pixels of a picture whose copies take no time

double pixels(float twips, int dpi)
{
    return std::round(double(twips) * dpi / Twips::perInch);
}

int widgetPixels(float twips, int dpi)
{
    return int(qBound(-double(QWIDGETSIZE_MAX), pixels(twips, dpi), double(QWIDGETSIZE_MAX)));
}

void refuseLength(float length)
{
    if (!(length >= 0))
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (std::isinf(length))
        throw RuntimeError(ErrorNumber::Overflow);
}

/// \a part of \a picture in a format that the painter draws fast.
QImage drawable(const QImage &picture, const QRect &part)
{
    return picture.copy(part).convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                        : QImage::Format_RGB32);
}

bool isDrawnFast(const QImage &picture)
{
    return picture.format() == QImage::Format_RGB32 ||
           picture.format() == QImage::Format_ARGB32_Premultiplied;
}

/// What of \a source is drawn on \a exposed, when one pixel of it is \a across by \a down. It is larger than
/// that where neighbours are mixed into the pixels at the edge.
QRect partFor(const QRect &exposed, double across, double down, const QImage &source, bool isSmooth)
{
    const int margin = isSmooth ? 2 : 0;
    const QRectF part(exposed.x() / across, exposed.y() / down, exposed.width() / across,
                      exposed.height() / down);
    return part.toAlignedRect().adjusted(-margin, -margin, margin, margin) & source.rect();
}

} // namespace

PictureBox::PictureBox(QWidget *parent)
    : QWidget(parent)
{
    m_idle.setInterval(0);
    on(&m_idle, &QTimer::timeout, this, &PictureBox::makeCopies);
    place();
}

void PictureBox::setPicture(const QImage &picture)
{
    QImage plain = picture;
    plain.setDevicePixelRatio(1);
    m_sizes.setPicture(plain);
    m_isCoarse = false;
    if (m_sizes.isComplete())
        m_idle.stop();
    else
        m_idle.start();
    if (!m_stretch)
        takeOwnSize();
    update();
}

void PictureBox::makeCopies()
{
    m_sizes.makePiece();
    if (!m_sizes.isComplete())
        return;
    m_idle.stop();
    if (m_isCoarse)
        update();
    m_isCoarse = false;
}

void PictureBox::setStretch(bool stretch)
{
    m_stretch = stretch;
    if (!m_stretch)
        takeOwnSize();
    update();
}

void PictureBox::setLeft(float left)
{
    m_left = left;
    place();
}

void PictureBox::setTop(float top)
{
    m_top = top;
    place();
}

void PictureBox::setWidth(float width)
{
    refuseLength(width);
    m_width = width;
    place();
}

void PictureBox::setHeight(float height)
{
    refuseLength(height);
    m_height = height;
    place();
}

void PictureBox::takeOwnSize()
{
    m_width = twipsX(Picture().width());
    m_height = twipsY(Picture().height());
    place();
}

void PictureBox::place()
{
    const int dpiX = logicalDpiX();
    const int dpiY = logicalDpiY();
    setGeometry(widgetPixels(m_left, dpiX), widgetPixels(m_top, dpiY), widgetPixels(m_width, dpiX),
                widgetPixels(m_height, dpiY));
}

float PictureBox::twipsX(double pixels) const
{
    return float(Twips::fromPixels(pixels, logicalDpiX()));
}

float PictureBox::twipsY(double pixels) const
{
    return float(Twips::fromPixels(pixels, logicalDpiY()));
}

QSizeF PictureBox::drawnSize() const
{
    return m_stretch ? QSizeF(pixels(m_width, logicalDpiX()), pixels(m_height, logicalDpiY()))
                     : QSizeF(Picture().size());
}

void PictureBox::paintEvent(QPaintEvent *event)
{
    runPainting([&] {
        const QRect exposed = event->rect() & QRectF({}, drawnSize()).toAlignedRect();
        QPainter painter(this);
        if (!Picture().isNull() && !exposed.isEmpty())
            draw(painter, exposed);
    });
}

/// Draws what is exposed and no more: a picture that is magnified many times is larger than a painter can
/// reach.
void PictureBox::draw(QPainter &painter, const QRect &exposed)
{
    const double acrossOfPicture = drawnSize().width() / Picture().width();
    const double downOfPicture = drawnSize().height() / Picture().height();
    const double scale = std::max(acrossOfPicture * painter.deviceTransform().m11(),
                                  downOfPicture * painter.deviceTransform().m22());
    const int level = levelFor(scale);
    const QImage &source = m_sizes.at(level);
    // Not by the copy's size, which is rounded up.
    const double across = std::ldexp(acrossOfPicture, level);
    const double down = std::ldexp(downOfPicture, level);
    const bool isSmooth = scale < squaresFrom && !(acrossOfPicture == 1 && downOfPicture == 1 && scale == 1);
    const QRect part = partFor(exposed, across, down, source, isSmooth);
    const QRectF target(part.x() * across, part.y() * down, part.width() * across, part.height() * down);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, isSmooth);
    if (isDrawnFast(source))
        painter.drawImage(target, source, part);
    else
        painter.drawImage(target, drawable(source, part));
}

/// The copy to draw from, as far as it is there.
int PictureBox::levelFor(double scale)
{
    const int wanted = m_sizes.levelFor(scale);
    if (wanted > m_sizes.highestLevel() && qint64(Picture().width()) * Picture().height() <= madeAtOnce)
        m_sizes.makeAll();
    if (wanted > m_sizes.highestLevel())
        m_isCoarse = true;
    return std::min(wanted, m_sizes.highestLevel());
}

void PictureBox::mousePressEvent(QMouseEvent *event)
{
    const QPointF at = event->position();
    run([&] { Q_EMIT MouseDown(event->button(), twipsX(at.x()), twipsY(at.y())); });
}

void PictureBox::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF at = event->position();
    run([&] { Q_EMIT MouseMove(event->buttons(), twipsX(at.x()), twipsY(at.y())); });
}

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    run([&] {
        const QPointF at = event->position();
        const bool isClick = event->button() == Qt::LeftButton && rect().contains(at.toPoint());
        Q_EMIT MouseUp(event->button(), twipsX(at.x()), twipsY(at.y()));
        if (isClick)
            Q_EMIT Click();
    });
}
