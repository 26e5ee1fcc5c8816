#include "ImagePanning.h"

#include "EventGate.h"
#include "Form.h"
#include "ImageGeometry.h"
#include "PictureBox.h"
#include "Placing.h"

#include <QAction>

ImagePanning::ImagePanning(Form &window, ImageGeometry &geometry, QAction &mnuViewPan)
    : QObject(&window)
    , m_window(window)
    , m_geometry(geometry)
{
    PictureBox &image = geometry.image();
    image.setMouseTracking(true); // moves without a button count too
    on(&mnuViewPan, &QAction::triggered, this, &ImagePanning::mnuViewPan_Click);
    on(&mnuViewPan, &QAction::toggled, this, [this](bool isChecked) {
        if (!isChecked)
            showPointer(false);
    });
    on(&image, &PictureBox::MouseDown, this,
       [this](Qt::MouseButton, float x, float y) { Image1_MouseDown(x, y); });
    on(&image, &PictureBox::MouseMove, this, &ImagePanning::Image1_MouseMove);
    on(&image, &PictureBox::MouseUp, this, [this] { m_gesture.release(); });
}

void ImagePanning::mnuViewPan_Click(bool isChecked)
{
    m_geometry.setPanMode(isChecked);
}

void ImagePanning::showPointer(bool isHand)
{
    for (QWidget *widget : {static_cast<QWidget *>(&m_geometry.image()), static_cast<QWidget *>(&m_window)}) {
        if (isHand)
            widget->setCursor(Qt::OpenHandCursor);
        else
            widget->unsetCursor();
    }
}

void ImagePanning::Image1_MouseDown(float x, float y)
{
    m_gesture.press(x, y, m_geometry.PanMode());
    if (m_geometry.PanMode())
        showPointer(true);
}

void ImagePanning::Image1_MouseMove(Qt::MouseButtons buttons, float x, float y)
{
    const std::optional<QPoint> distance = m_gesture.move(x, y);
    if (!distance)
        return;
    const ImageSize size = m_geometry.size();
    const Surroundings around = m_geometry.around();
    ImagePlace place = m_geometry.place();
    if (buttons & Qt::LeftButton)
        place = Placing::dragged(place, size, around, *distance);
    m_geometry.setPlace(Placing::clamped(place, size, around));
}

void ImagePanning::step(QPoint direction)
{
    constexpr int distance = 720; // twips, before they are damped
    const ImageSize size = m_geometry.size();
    const Surroundings around = m_geometry.around();
    if (size.width <= around.window.width && size.height <= around.window.height)
        return;
    const ImagePlace before = m_geometry.place();
    ImagePlace place =
        Placing::clamped(Placing::dragged(before, size, around, -distance * direction), size, around);
    if (direction.x() == 0)
        place.left = before.left;
    if (direction.y() == 0)
        place.top = before.top;
    m_geometry.setPlace(place);
}
