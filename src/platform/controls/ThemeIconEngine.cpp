#include "ThemeIconEngine.h"

#include "Colors.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr double leastContrast = 3;

qsizetype indexOfNear(const QColor &color, const QList<QColor> &colors)
{
    constexpr int tolerance = 24; // for each part of a color
    const auto isNear = [&](const QColor &other) {
        return std::abs(color.red() - other.red()) <= tolerance &&
               std::abs(color.green() - other.green()) <= tolerance &&
               std::abs(color.blue() - other.blue()) <= tolerance;
    };
    return std::find_if(colors.cbegin(), colors.cend(), isNear) - colors.cbegin();
}

/// The colors of a symbol: a picture of one or two flat colors that touch nowhere. None of any other picture.
QList<QColor> symbolColors(const QImage &image)
{
    constexpr int mostColors = 2;
    constexpr int leastOpacity = 128;   // below it the color is not exact
    constexpr int opacityToTouch = 192; // less at both sides of a gap that is narrower than a pixel
    constexpr qsizetype none = -1;
    QList<QColor> colors;
    QList<qsizetype> above(image.width(), none);
    for (int y = 0; y < image.height(); ++y) {
        qsizetype before = none;
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const qsizetype index = color.alpha() < leastOpacity ? none : indexOfNear(color, colors);
            if (index == colors.size())
                colors.append(color);
            const qsizetype here = color.alpha() < opacityToTouch ? none : index;
            const bool touches = here != none && ((before != none && before != here) ||
                                                  (above[x] != none && above[x] != here));
            if (touches || colors.size() > mostColors)
                return {};
            before = above[x] = here;
        }
    }
    return colors;
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

int distance(const QColor &a, const QColor &b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

/// \a image with each of \a colors replaced by that of \a shown. Its pixels keep their opacity.
QImage replaced(QImage image, const QList<QColor> &colors, const QList<QColor> &shown)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const auto nearest =
                std::min_element(colors.cbegin(), colors.cend(), [&](const QColor &a, const QColor &b) {
                    return distance(a, color) < distance(b, color);
                });
            QColor other = shown[nearest - colors.cbegin()];
            if (other == *nearest)
                continue;
            other.setAlpha(color.alpha());
            image.setPixelColor(x, y, other);
        }
    }
    return image;
}

/// \a picture in the colors for \a mode; null where it is no symbol.
QPixmap recolored(const QPixmap &picture, QIcon::Mode mode)
{
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    const QList<QColor> colors = symbolColors(image);
    if (colors.isEmpty())
        return {};
    QList<QColor> shown;
    for (const QColor &color : colors)
        shown.append(shownColor(color, mode));
    return shown == colors ? picture : QPixmap::fromImage(replaced(image, colors, shown));
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
