#pragma once

#include <QWidget>

class PictureBox;

/// The part of the image window below its bars, which the picture is in. Takes the keys and the wheel.
class ImageView : public QWidget
{
    Q_OBJECT

public:
    ImageView();

    PictureBox &picture() const { return *Image1; }

Q_SIGNALS:
    /// An arrow key; the sides are -1, 0 or 1.
    void Arrow(QPoint direction);
    /// Ctrl and the wheel: 1 for larger, -1 for smaller.
    void ZoomStep(int direction);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    PictureBox *Image1;
    int m_wheel = 0; ///< eighths of a degree that are no whole step yet
};
