#pragma once

#include <QIcon>
#include <QIconEngine>

/// Draws a symbol of a theme in the color of disabled text while its control is disabled, in that of selected
/// text on a selected row, and else so that it is seen on a button. A symbol has one or two flat colors that
/// touch nowhere; any other icon is drawn as the style does it.
class ThemeIconEngine : public QIconEngine
{
public:
    explicit ThemeIconEngine(const QIcon &icon)
        : m_icon(icon)
    {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override { return new ThemeIconEngine(*this); }
    QString iconName() override { return m_icon.name(); }
    bool isNull() override { return m_icon.isNull(); }

private:
    QIcon m_icon;
};
