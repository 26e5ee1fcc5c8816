#include "MdiArea.h"

#include "ChildWindow.h"
#include "EventGate.h"

#include <QEvent>
#include <QLayout>
#include <QStyle>
#include <algorithm>

namespace {

constexpr double cascadePart = 2.0 / 3; // of the area's width and height

/// A child whose size policy is to expand gets two thirds of a large area.
QSize sizeOf(const QWidget &child, const QSize &space)
{
    QSize size = child.sizeHint();
    const QSize large = space * cascadePart;
    if (child.sizePolicy().expandingDirections() & Qt::Horizontal)
        size.setWidth(std::max(size.width(), large.width()));
    if (child.sizePolicy().expandingDirections() & Qt::Vertical)
        size.setHeight(std::max(size.height(), large.height()));
    return size;
}

bool isIcon(const QMdiSubWindow *child)
{
    return child->isVisible() && child->isMinimized();
}

} // namespace

MdiArea::MdiArea(QWidget *parent)
    : QMdiArea(parent)
{
    setActivationOrder(ActivationHistoryOrder);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setBackgroundFromPalette();
    on(this, &QMdiArea::subWindowActivated, this, &MdiArea::activeChildChanged);
}

bool MdiArea::viewportEvent(QEvent *event)
{
    const bool isHandled = QMdiArea::viewportEvent(event);
    if (event->type() == QEvent::ChildRemoved)
        run([&] { Q_EMIT activeChildChanged(); });
    return isHandled;
}

void MdiArea::adopt(QWidget &child)
{
    if (!isVisible())
        layOutFrame();
    const QSize space = maximumViewportSize();
    auto *window = new ChildWindow(child);
    addSubWindow(window);
    window->resize(sizeOf(child, space).boundedTo(space).expandedTo(window->minimumSizeHint()));
    const int places = std::max(1, (space.height() - window->height()) / cascadeStep() + 1);
    const int place = m_placed++ % places;
    window->move(place * cascadeStep(), place * cascadeStep());
}

void MdiArea::bringForward(QWidget &child)
{
    auto *window = qobject_cast<QMdiSubWindow *>(child.parentWidget());
    if (window->isMinimized())
        window->showNormal();
    else
        window->show();
    setActiveSubWindow(window);
    child.setFocus();
}

QMdiSubWindow *MdiArea::activeChild() const
{
    if (QMdiSubWindow *current = currentSubWindow(); !current || !current->isHidden())
        return current;
    const QList<QMdiSubWindow *> history = subWindowList(ActivationHistoryOrder);
    const auto shown = std::find_if(history.crbegin(), history.crend(),
                                    [](const QMdiSubWindow *child) { return !child->isHidden(); });
    return shown == history.crend() ? nullptr : *shown;
}

/// A frame that is not shown lays nothing out by itself when its size changes.
void MdiArea::layOutFrame()
{
    if (QLayout *frame = window()->layout()) {
        frame->invalidate();
        frame->activate();
    }
}

int MdiArea::cascadeStep() const
{
    return std::max(1, style()->pixelMetric(QStyle::PM_TitleBarHeight) +
                           style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth));
}

void MdiArea::arrange(Arrangement arrangement)
{
    QMdiSubWindow *active = activeChild();
    arrangeIcons();
    if (arrangement == Arrangement::Cascade)
        cascade();
    else if (arrangement == Arrangement::TileHorizontal)
        tile(Qt::Vertical);
    else if (arrangement == Arrangement::TileVertical)
        tile(Qt::Horizontal);
    setActiveSubWindow(active);
}

/// Bottom of the stack first, so that the active child comes last.
QList<QMdiSubWindow *> MdiArea::openChildren() const
{
    QList<QMdiSubWindow *> open;
    for (QMdiSubWindow *child : subWindowList(StackingOrder)) {
        if (child->isVisible() && !isIcon(child))
            open.append(child);
    }
    return open;
}

QRect MdiArea::spaceForOpenChildren() const
{
    QRect space = viewport()->rect();
    for (const QMdiSubWindow *child : subWindowList()) {
        if (isIcon(child))
            space.setBottom(std::min(space.bottom(), child->geometry().top() - 1));
    }
    return space;
}

void MdiArea::cascade()
{
    const QRect space = spaceForOpenChildren();
    const int step = cascadeStep();
    const QSize size = space.size() * cascadePart;
    const int places = std::max(1, (space.height() - size.height()) / step);
    int place = 0;
    for (QMdiSubWindow *child : openChildren()) {
        child->showNormal();
        child->setGeometry(QRect(space.topLeft() + QPoint(step, step) * (place % places), size));
        child->raise();
        ++place;
    }
}

void MdiArea::tile(Qt::Orientation direction)
{
    const QRect space = spaceForOpenChildren();
    QList<QMdiSubWindow *> open = openChildren();
    std::reverse(open.begin(), open.end()); // the active child takes the first strip
    const int count = int(open.size());
    const int length = direction == Qt::Vertical ? space.height() : space.width();
    for (int i = 0; i < count; ++i) {
        const int from = length * i / count;
        const int extent = length * (i + 1) / count - from;
        open[i]->showNormal();
        open[i]->setGeometry(direction == Qt::Vertical
                                 ? QRect(space.left(), space.top() + from, space.width(), extent)
                                 : QRect(space.left() + from, space.top(), extent, space.height()));
    }
}

void MdiArea::arrangeIcons()
{
    QPoint corner = viewport()->rect().bottomLeft() + QPoint(0, 1);
    for (QMdiSubWindow *child : childWindows()) {
        if (!isIcon(child))
            continue;
        if (corner.x() > 0 && corner.x() + child->width() > viewport()->width())
            corner = QPoint(0, corner.y() - child->height());
        child->move(corner - QPoint(0, child->height()));
        corner.rx() += child->width();
    }
}

void MdiArea::resizeEvent(QResizeEvent *event)
{
    QMdiArea::resizeEvent(event);
    run([&] { arrangeIcons(); });
}

void MdiArea::changeEvent(QEvent *event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        run([&] { setBackgroundFromPalette(); });
}

void MdiArea::setBackgroundFromPalette()
{
    setBackground(palette().color(QPalette::Window).darker(115));
}
