#pragma once

#include "HalfSizes.h"

#include <QTimer>
#include <QWidget>

/// A rectangle on which a picture is drawn. The picture itself is never changed. Lengths are twips, as 32-bit
/// floats that keep their fractions; the rectangle on the screen is rounded to pixels from them.
///
/// Only what is exposed is drawn: smoothly, and from 5 pixels of the screen to one of the picture on as
/// squares. Small, a large picture is drawn from copies that are made while nothing else happens; until they
/// are there it is drawn from what there is.
class PictureBox : public QWidget
{
    Q_OBJECT

public:
    explicit PictureBox(QWidget *parent = nullptr);

    /// As it was set; a null image when there is none.
    const QImage &Picture() const { return m_sizes.picture(); }
    /// Without Stretch the rectangle takes the picture's own size, one pixel of it to one of the screen's.
    void setPicture(const QImage &picture);

    /// Whether the picture is drawn into the rectangle whatever its size. Without it the rectangle takes the
    /// picture's own size at once; a width or height set later cuts the picture or leaves a gap beside it.
    bool Stretch() const { return m_stretch; }
    void setStretch(bool stretch);

    float Left() const { return m_left; }
    float Top() const { return m_top; }
    float Width() const { return m_width; }
    float Height() const { return m_height; }
    void setLeft(float left);
    void setTop(float top);
    /// Both throw RuntimeError 380 for a negative length, 6 for an infinite one.
    void setWidth(float width);
    void setHeight(float height);

Q_SIGNALS:
    /// Positions are relative to the rectangle.
    void MouseDown(Qt::MouseButton button, float x, float y);
    void MouseMove(Qt::MouseButtons buttons, float x, float y);
    void MouseUp(Qt::MouseButton button, float x, float y);
    /// The left button was pressed and released on the rectangle; comes behind MouseUp.
    void Click();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void makeCopies();
    QSizeF drawnSize() const;
    void takeOwnSize();
    void place();
    void draw(QPainter &painter, const QRect &exposed);
    int levelFor(double scale);
    float twipsX(double pixels) const;
    float twipsY(double pixels) const;

    HalfSizes m_sizes;
    QTimer m_idle;           ///< runs while copies are to be made
    bool m_isCoarse = false; ///< drawn without the copy that it should be drawn from
    bool m_stretch = false;
    float m_left = 0;
    float m_top = 0;
    float m_width = 0;
    float m_height = 0;
};
