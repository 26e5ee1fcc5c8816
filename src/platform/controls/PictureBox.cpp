#include "PictureBox.h"

#include "EventGate.h"
#include "RuntimeError.h"
#include "Twips.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace {

int pixels(float twips, int dpi)
{
    return int(qMin(std::round(twips * double(dpi) / Twips::perInch), double(QWIDGETSIZE_MAX)));
}

void refuseNegative(float length)
{
    if (!(length >= 0))
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

} // namespace

PictureBox::PictureBox(QWidget *parent)
    : QWidget(parent)
{
    place();
}

void PictureBox::setPicture(const QImage &picture)
{
    m_picture = picture;
    m_picture.setDevicePixelRatio(1);
    m_reduced = {};
    if (!m_stretch)
        takeOwnSize();
    update();
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
    refuseNegative(width);
    m_width = width;
    place();
}

void PictureBox::setHeight(float height)
{
    refuseNegative(height);
    m_height = height;
    place();
}

void PictureBox::takeOwnSize()
{
    m_width = twipsX(m_picture.width());
    m_height = twipsY(m_picture.height());
    place();
}

void PictureBox::place()
{
    setGeometry(pixels(m_left, logicalDpiX()), pixels(m_top, logicalDpiY()), pixels(m_width, logicalDpiX()),
                pixels(m_height, logicalDpiY()));
}

float PictureBox::twipsX(double pixels) const
{
    return float(Twips::fromPixels(pixels, logicalDpiX()));
}

float PictureBox::twipsY(double pixels) const
{
    return float(Twips::fromPixels(pixels, logicalDpiY()));
}

QSize PictureBox::drawnSize() const
{
    return m_stretch ? size() : m_picture.size();
}

void PictureBox::paintEvent(QPaintEvent *event)
{
    runPainting([&] {
        const QRect exposed = event->rect() & QRect({}, drawnSize());
        QPainter painter(this);
        if (!m_picture.isNull() && !exposed.isEmpty())
            draw(painter, exposed);
    });
}

/// Draws what is exposed and no more: a picture that is magnified many times is larger than a painter can
/// reach.
void PictureBox::draw(QPainter &painter, const QRect &exposed)
{
    const QSize drawn = drawnSize();
    const QSizeF pixels(drawn.width() * painter.deviceTransform().m11(),
                        drawn.height() * painter.deviceTransform().m22());
    const QImage &source = scaledDown(pixels.toSize());
    const double across = double(drawn.width()) / source.width();
    const double down = double(drawn.height()) / source.height();
    const QRect part =
        QRectF(exposed.x() / across, exposed.y() / down, exposed.width() / across, exposed.height() / down)
            .toAlignedRect() &
        source.rect();
    const QRectF target(part.x() * across, part.y() * down, part.width() * across, part.height() * down);
    painter.drawImage(target, source, part);
}

/// The picture as it is, or smoothly reduced where \a pixels of the screen are fewer.
const QImage &PictureBox::scaledDown(const QSize &pixels)
{
    const QSize least = pixels.boundedTo(m_picture.size()).expandedTo({1, 1});
    if (least == m_picture.size())
        return m_picture;
    if (m_reduced.size() != least)
        m_reduced = m_picture.scaled(least, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return m_reduced;
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
