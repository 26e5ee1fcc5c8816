#include "ThemeIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace {

QPixmap inColor(QPixmap picture, const QColor &color)
{
    if (picture.isNull())
        return picture;
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
    const bool isOwn = mode == QIcon::Disabled || mode == QIcon::Selected;
    QPixmap picture = m_icon.pixmap(size / scale, scale, isOwn ? QIcon::Normal : mode, state);
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Disabled)
        return inColor(picture, palette.color(QPalette::Disabled, QPalette::ButtonText));
    return isOwn ? inColor(picture, palette.color(QPalette::HighlightedText)) : picture;
}

QSize ThemeIconEngine::actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return m_icon.actualSize(size, mode, state);
}

QList<QSize> ThemeIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    return m_icon.availableSizes(mode, state);
}
