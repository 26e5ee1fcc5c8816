#include "ImageView.h"

#include "EventGate.h"
#include "Named.h"
#include "PictureBox.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace {

QPoint directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

ImageView::ImageView()
    : Image1(named("Image1", new PictureBox(this), QStringLiteral("Picture")))
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ImageView::keyPressEvent(QKeyEvent *event)
{
    bool isArrow = false;
    run([&] {
        const QPoint direction = directionOf(event->key());
        isArrow = !direction.isNull();
        if (isArrow)
            Q_EMIT Arrow(direction);
    });
    if (!isArrow)
        QWidget::keyPressEvent(event);
}

void ImageView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QWidget::wheelEvent(event);
        return;
    }
    run([&] {
        m_wheel += event->angleDelta().y();
        const int steps = m_wheel / QWheelEvent::DefaultDeltasPerStep;
        m_wheel %= QWheelEvent::DefaultDeltasPerStep;
        for (int i = 0; i < std::abs(steps); ++i)
            Q_EMIT ZoomStep(steps > 0 ? 1 : -1);
    });
}
