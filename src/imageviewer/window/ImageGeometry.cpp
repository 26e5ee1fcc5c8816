#include "ImageGeometry.h"

#include "Form.h"
#include "PictureBox.h"
#include "Placing.h"
#include "Twips.h"

#include <QAction>
#include <QScreen>

ImageGeometry::ImageGeometry(Form &window, PictureBox &image, QAction &mnuViewPan,
                             QAction &mnuSizeFittoWindow)
    : m_window(window)
    , m_image(image)
    , m_panMark(mnuViewPan)
    , m_fitMark(mnuSizeFittoWindow)
{}

void ImageGeometry::panOff()
{
    m_panMode = false;
    uncheckPan();
}

void ImageGeometry::uncheckPan()
{
    m_panMark.setChecked(false);
}

void ImageGeometry::uncheckFitWindow()
{
    m_fitMark.setChecked(false);
}

ImageSize ImageGeometry::size() const
{
    return {m_image.Width(), m_image.Height()};
}

void ImageGeometry::setSize(ImageSize size)
{
    m_image.setHeight(size.height);
    m_image.setWidth(size.width);
}

ImagePlace ImageGeometry::place() const
{
    return {m_image.Left(), m_image.Top()};
}

void ImageGeometry::setPlace(ImagePlace place)
{
    m_image.setLeft(place.left);
    m_image.setTop(place.top);
}

Surroundings ImageGeometry::around() const
{
    const auto perPixelX = float(Twips::fromPixels(1, m_window.logicalDpiX()));
    const auto perPixelY = float(Twips::fromPixels(1, m_window.logicalDpiY()));
    const QSize screen = m_window.screen()->size();
    return {{float(m_window.Width()), float(m_window.Height())},
            {float(screen.width()) * perPixelX, float(screen.height()) * perPixelY},
            perPixelX,
            perPixelY};
}

bool ImageGeometry::isNormal() const
{
    return m_window.WindowState() == FormState::Normal;
}

bool ImageGeometry::isMaximized() const
{
    return m_window.WindowState() == FormState::Maximized;
}

void ImageGeometry::maximize()
{
    m_window.setWindowState(FormState::Maximized);
}

void ImageGeometry::growWindow(int twips)
{
    if (isNormal())
        m_window.setHeight(m_window.Height() + twips);
}

void ImageGeometry::CenterImage()
{
    if (!m_panMode && !m_fitWindowMode)
        setPlace(Placing::centered(size(), around(), m_barOffset));
}

void ImageGeometry::FitWindowtoImage()
{
    if (Placing::fillsScreen(size(), around())) {
        maximize();
        return;
    }
    m_window.setWindowState(FormState::Normal);
    setWindow(Placing::windowFor(size()));
}

void ImageGeometry::Resize()
{
    CenterImage();
    if (!m_image.Stretch() && !m_panMode && isNormal())
        setWindow(Placing::heldBy(size(), around()));
    if (m_fitWindowMode)
        setSize(Placing::filling(around().window));
    if (isNormal())
        setWindow(Placing::noSmaller(around().window, around()));
    CenterImage();
}

/// A side that stays as it is is not set: each change of the window's size runs Resize() again.
void ImageGeometry::setWindow(ImageSize size)
{
    const ImageSize window = around().window;
    if (size.height != window.height)
        m_window.setHeight(double(size.height));
    if (size.width != window.width)
        m_window.setWidth(double(size.width));
}
