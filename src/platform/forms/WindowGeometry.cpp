#include "WindowGeometry.h"

#include "Twips.h"

#include <QWidget>

namespace {

int across(const QWidget &window, double twips)
{
    return Twips::toPixels(twips, window.logicalDpiX());
}

int down(const QWidget &window, double twips)
{
    return Twips::toPixels(twips, window.logicalDpiY());
}

Qt::WindowStates flagsOf(FormState state)
{
    switch (state) {
    case FormState::Minimized:
        return Qt::WindowMinimized;
    case FormState::Maximized:
        return Qt::WindowMaximized;
    case FormState::Normal:
        break;
    }
    return Qt::WindowNoState;
}

} // namespace

double WindowGeometry::left(const QWidget &window)
{
    return Twips::fromPixels(window.x(), window.logicalDpiX());
}

double WindowGeometry::top(const QWidget &window)
{
    return Twips::fromPixels(window.y(), window.logicalDpiY());
}

double WindowGeometry::width(const QWidget &window)
{
    return Twips::fromPixels(window.width(), window.logicalDpiX());
}

double WindowGeometry::height(const QWidget &window)
{
    return Twips::fromPixels(window.height(), window.logicalDpiY());
}

void WindowGeometry::setLeft(QWidget &window, double twips)
{
    window.move(across(window, twips), window.y());
}

void WindowGeometry::setTop(QWidget &window, double twips)
{
    window.move(window.x(), down(window, twips));
}

void WindowGeometry::setWidth(QWidget &window, double twips)
{
    window.resize(across(window, twips), window.height());
}

void WindowGeometry::setHeight(QWidget &window, double twips)
{
    window.resize(window.width(), down(window, twips));
}

FormState WindowGeometry::state(const QWidget &window)
{
    if (window.isMinimized())
        return FormState::Minimized;
    return window.isMaximized() ? FormState::Maximized : FormState::Normal;
}

void WindowGeometry::setState(QWidget &window, FormState state)
{
    const Qt::WindowStates others =
        window.windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen);
    window.setWindowState(others | flagsOf(state));
}
