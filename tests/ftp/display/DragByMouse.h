#pragma once

#include <QAbstractItemView>
#include <QDrag>
#include <QTest>
#include <QTimer>
#include <QWindow>

/// Drags \a row of one list onto another one of the same window; \a meanwhile is run when the drag has begun.
/// Returns whether there was a drag; it is over then, and what it has posted has come.
inline bool dragByMouse(
    QAbstractItemView &from, int row, QAbstractItemView &onto, const std::function<void()> &meanwhile = [] {})
{
    QWidget &window = *from.window();
    QWindow *screen = window.windowHandle();
    const QPoint start =
        from.viewport()->mapTo(&window, from.visualRect(from.model()->index(row, 0)).center());
    const QPoint end = onto.viewport()->mapTo(&window, onto.viewport()->rect().center());
    bool isDragged = false;
    QTest::mousePress(screen, Qt::LeftButton, {}, start);
    QTest::mouseMove(screen, start + QPoint(0, 30));
    QTimer::singleShot(0, &window, [=, &from, &isDragged] { // in the drag, which takes what the window gets
        isDragged = from.findChild<QDrag *>();
        meanwhile();
        QTest::mouseMove(screen, end);
        QTest::mouseMove(screen, end + QPoint(1, 1));
        QTest::mouseRelease(screen, Qt::LeftButton, {}, end);
    });
    QTest::mouseMove(screen, start + QPoint(0, 31));
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    return isDragged;
}
