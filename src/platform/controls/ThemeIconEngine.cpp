#include "ThemeIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <cstdlib>
#include <optional>

namespace {

/// False for an empty picture.
bool hasOneColor(const QPixmap &picture)
{
    constexpr int leastOpacity = 128; // below it the color is not exact
    constexpr int tolerance = 24;     // of the same scale, for each part of a color
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    std::optional<QColor> first;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() < leastOpacity)
                continue;
            if (!first)
                first = color;
            if (std::abs(color.red() - first->red()) > tolerance ||
                std::abs(color.green() - first->green()) > tolerance ||
                std::abs(color.blue() - first->blue()) > tolerance)
                return false;
        }
    }
    return first.has_value();
}

QColor textColor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    return mode == QIcon::Disabled ? palette.color(QPalette::Disabled, QPalette::ButtonText)
                                   : palette.color(QPalette::HighlightedText);
}

QPixmap inColor(QPixmap picture, const QColor &color)
{
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
    return picture;
}

} // namespace

void ThemeIconEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
}

QPixmap ThemeIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap ThemeIconEngine::scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale)
{
    if (mode == QIcon::Disabled || mode == QIcon::Selected) {
        const QPixmap picture = m_icon.pixmap(size / scale, scale, QIcon::Normal, state);
        if (hasOneColor(picture))
            return inColor(picture, textColor(mode));
    }
    return m_icon.pixmap(size / scale, scale, mode, state);
}

QSize ThemeIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return m_icon.actualSize(size, mode, state);
}

QList<QSize> ThemeIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    return m_icon.availableSizes(mode, state);
}
