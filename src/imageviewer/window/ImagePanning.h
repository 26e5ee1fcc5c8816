#pragma once

#include "PanGesture.h"

#include <QObject>

class Form;
class ImageGeometry;

/// Moves the display rectangle by the mouse in pan mode, and by the arrow keys.
class ImagePanning : public QObject
{
public:
    /// Is owned by \a window.
    ImagePanning(Form &window, ImageGeometry &geometry, QAction &mnuViewPan);

    /// A step towards the picture's edge in \a direction, whose sides are -1, 0 or 1. Nothing for a picture
    /// that is no larger than the window.
    void step(QPoint direction);

private:
    void mnuViewPan_Click(bool isChecked);
    void Image1_MouseDown(float x, float y);
    void Image1_MouseMove(Qt::MouseButtons buttons, float x, float y);
    void showPointer(bool isHand);

    Form &m_window;
    ImageGeometry &m_geometry;
    PanGesture m_gesture;
};
