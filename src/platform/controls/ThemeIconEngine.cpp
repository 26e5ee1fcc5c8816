#include "ThemeIconEngine.h"

#include "Colors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <algorithm>
#include <cstdlib>
#include <optional>

namespace {

constexpr double leastContrast = 3;

/// The color of a picture that has only one.
std::optional<QColor> singleColor(const QImage &image)
{
    constexpr int leastOpacity = 128; // below it the color is not exact
    constexpr int tolerance = 24;     // of the same scale, for each part of a color
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
                return {};
        }
    }
    return first;
}

/// On a button of \a palette, which the style draws in its color and, towards the top, lighter.
bool isSeenOnButton(const QColor &color, const QPalette &palette)
{
    constexpr int lightest = 145; // percent
    const QColor button = palette.color(QPalette::Button);
    return std::min(contrast(color, button), contrast(color, button.lighter(lightest))) >= leastContrast;
}

/// \a color, as near to that of the text as it takes to be seen on a button.
QColor visibleOnButton(const QColor &color)
{
    const QPalette palette = QGuiApplication::palette();
    constexpr double step = 0.125;
    double share = 0;
    QColor result = color;
    while (share < 1 && !isSeenOnButton(result, palette)) {
        share += step;
        result = mixed(color, palette.color(QPalette::ButtonText), share);
    }
    return result;
}

QColor shownColor(const QColor &color, QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled)
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    return mode == QIcon::Selected ? palette.color(QPalette::HighlightedText) : visibleOnButton(color);
}

QPixmap inColor(QPixmap picture, const QColor &color)
{
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), color);
    return picture;
}

/// \a picture in the color for \a mode; null where it has several.
QPixmap recolored(const QPixmap &picture, QIcon::Mode mode)
{
    const auto color = singleColor(picture.toImage().convertToFormat(QImage::Format_ARGB32));
    if (!color)
        return {};
    const QColor shown = shownColor(*color, mode);
    return shown == *color ? picture : inColor(picture, shown);
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
    const QString key = QStringLiteral("ThemeIconEngine %1 %2 %3 %4x%5 %6 %7 %8")
                            .arg(m_icon.cacheKey())
                            .arg(QGuiApplication::palette().cacheKey())
                            .arg(QIcon::themeName())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(scale)
                            .arg(mode)
                            .arg(state);
    QPixmap result;
    if (!QPixmapCache::find(key, &result)) {
        result = recolored(m_icon.pixmap(size / scale, scale, QIcon::Normal, state), mode);
        if (result.isNull())
            result = m_icon.pixmap(size / scale, scale, mode, state);
        QPixmapCache::insert(key, result);
    }
    return result;
}

QSize ThemeIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return m_icon.actualSize(size, mode, state);
}

QList<QSize> ThemeIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    return m_icon.availableSizes(mode, state);
}
